// codes_worn SEED COUNT: draws so many QR codes of each kind of wear, and counts those that Kovrel reads beside those
// that ZXing-C++ and ZBar read of themselves. Ends with 1 when either of them reads more of a kind, or when a payload
// is wrong. Needs qrencode.

#include "bench/Samples.h"
#include "platform/plugins/PluginCodeReader.h"
#include "recognition/codes/GreyPicture.h"
#include "recognition/codes/QRCodeDetector.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QProcess>
#include <QRandomGenerator>

#include <cmath>
#include <cstdio>

using namespace Kovrel;
using Engine = CodeReader::Engine;

namespace {

using Random = QRandomGenerator;
using Wear = QImage (*)(const QImage& code, Random& random);

constexpr int module = 6; // pixels, before the wear

QImage code(const QByteArray& payload)
{
    QProcess encoder;
    encoder.start("qrencode", {"-8", "-o", "-", "-t", "PNG", "-l", "M", "-s", QString::number(module), "-m", "4"});
    encoder.write(payload);
    encoder.closeWriteChannel();
    encoder.waitForFinished();
    return QImage::fromData(encoder.readAllStandardOutput()).convertToFormat(QImage::Format_RGB32);
}

QImage scaled(const QImage& image, double factor)
{
    return image.scaled(image.size() * factor, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// Each pixel from where `from` says, in shares of the picture.
template <class From>
QImage warped(const QImage& image, From from)
{
    QImage result(image.size(), image.format());
    result.fill(Qt::white);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QPointF place = from(double(x) / image.width(), double(y) / image.height());
            const QPoint pixel(int(place.x() * image.width()), int(place.y() * image.height()));
            if (image.rect().contains(pixel))
                result.setPixel(x, y, image.pixel(pixel));
        }
    return result;
}

QImage asItIs(const QImage& code, Random&)
{
    return code;
}

QImage stained(const QImage& code, Random& random)
{
    QImage result = code;
    QPainter painter(&result);
    painter.setPen(Qt::NoPen);
    for (int stain = random.bounded(2, 5); stain > 0; --stain) {
        painter.setBrush(random.bounded(2) == 0 ? Qt::white : Qt::black);
        const int side = code.width() / 12;
        painter.drawEllipse(QPoint(random.bounded(code.width() / 3, code.width() * 3 / 4),
                                   random.bounded(code.height() / 3, code.height() * 3 / 4)),
                            side, side / 2);
    }
    return result;
}

QImage curved(const QImage& code, Random& random)
{
    const double bend = 0.01 + 0.05 * random.generateDouble();
    return warped(scaled(code, 2),
                  [bend](double x, double y) { return QPointF(x, y + bend * (std::pow(2 * x - 1, 2) - 0.5)); });
}

// As it is seen from below.
QImage slanted(const QImage& code, Random& random)
{
    const double slant = (0.15 + 0.15 * random.generateDouble()) * code.width();
    const QPolygonF flat(QRectF(code.rect()));
    QPolygonF seen = flat;
    seen[0] += QPointF(slant, slant / 2);
    seen[1] += QPointF(-slant, slant / 2);
    QTransform transform;
    QTransform::quadToQuad(flat.first(4), seen.first(4), transform);
    QImage result(code.size(), code.format());
    result.fill(Qt::white);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setTransform(transform);
    painter.drawImage(0, 0, code);
    return result;
}

QImage tiny(const QImage& code, Random& random)
{
    return scaled(code, (1.2 + 0.8 * random.generateDouble()) / module);
}

QImage faint(const QImage& code, Random& random)
{
    const int light = random.bounded(90, 230);
    const int dark = light - random.bounded(14, 40);
    QImage result = code;
    for (int y = 0; y < result.height(); ++y)
        for (int x = 0; x < result.width(); ++x) {
            const int level = (qGray(code.pixel(x, y)) < 128 ? dark : light) + random.bounded(-3, 4);
            result.setPixel(x, y, qRgb(level, level, level));
        }
    return result;
}

QImage shaded(const QImage& code, Random& random)
{
    QImage result = code;
    QPainter painter(&result);
    QLinearGradient shade(0, 0, code.width(), code.height() * random.generateDouble());
    shade.setColorAt(0, QColor(0, 0, 0, 0));
    shade.setColorAt(0.5, QColor(0, 0, 0, random.bounded(60, 120)));
    shade.setColorAt(0.6, QColor(0, 0, 0, random.bounded(170, 225)));
    shade.setColorAt(1, QColor(0, 0, 0, 225));
    painter.fillRect(result.rect(), shade);
    return result;
}

QImage blurred(const QImage& code, Random& random)
{
    return scaled(scaled(code, (0.9 + 0.5 * random.generateDouble()) / module), module);
}

QImage noisy(const QImage& code, Random& random)
{
    const int noise = random.bounded(90, 170);
    QImage result = code;
    for (int y = 0; y < result.height(); ++y)
        for (int x = 0; x < result.width(); ++x) {
            const int level = qBound(0, qGray(code.pixel(x, y)) / 2 + 64 + random.bounded(-noise, noise + 1), 255);
            result.setPixel(x, y, qRgb(level, level, level));
        }
    return result;
}

struct Kind {
    const char* name;
    Wear wear;
};

constexpr Kind kinds[] = {{"as it is", asItIs}, {"stained", stained}, {"curved", curved},
                          {"slanted", slanted}, {"tiny", tiny},       {"faint", faint},
                          {"shaded", shaded},   {"blurred", blurred}, {"noisy", noisy}};

// On a page with other things around it.
QImage page(const QImage& code, Random& random)
{
    QImage result(code.size() + QSize(300, 200), QImage::Format_RGB32);
    result.fill(code.pixel(1, 1));
    QPainter painter(&result);
    for (int bar = 0; bar < 12; ++bar)
        painter.fillRect(random.bounded(10, 60), 20 + bar * 14, random.bounded(40, 110), 7, QColor(60, 60, 60));
    painter.drawImage(200, 100, code);
    return result;
}

const PluginCodeReader reader;

bool readsOfItself(const QImage& image, Engine engine, const QString& payload)
{
    const auto codes = reader.read(GreyPicture::of(image), engine);
    return codes && std::ranges::any_of(*codes, [&](const auto& one) { return one.payload == payload; });
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    const int count = arguments.value(2).toInt();
    bool isGood = count > 0;
    std::printf("%-10s %8s %8s %8s %8s %10s\n", "codes", "kovrel", "zxing", "zbar", "wrong", "kovrel ms");
    for (const Kind& kind : kinds) {
        Random random(arguments.value(1).toUInt() * 100 + quint32(&kind - kinds));
        int ours = 0;
        int zxing = 0;
        int zbar = 0;
        int wrong = 0;
        Bench::Samples times;
        for (int number = 0; number < count; ++number) {
            const QString payload =
                QString("https://example.org/%1").arg(random.generate64(), random.bounded(1, 40), 36, QChar('x'));

            const QImage image = page(kind.wear(code(payload.toUtf8()), random), random);
            std::vector<QRCode> found;
            times.add(Bench::milliseconds([&] {
                found = QRCodeDetector::detectCodesSync(image, true, true, std::nullopt, reader)
                            .value_or(std::vector<QRCode>());
            }));
            const auto right = std::ranges::count(found, payload, &QRCode::payload);
            ours += right > 0;
            wrong += int(found.size()) > int(right);
            zxing += readsOfItself(image, Engine::zxing, payload);
            zbar += readsOfItself(image, Engine::zbar, payload);
        }
        std::printf("%-10s %8d %8d %8d %8d %10.1f\n", kind.name, ours, zxing, zbar, wrong, times.median());
        isGood &= ours >= std::max(zxing, zbar) && wrong == 0;
    }
    return isGood ? 0 : 1;
}
