// codes FOLDER: looks for codes in every file that FOLDER/manifest.tsv names, and in the compositions that
// FOLDER/composites.tsv describes, and compares with what they expect. Ends with 1 when fewer than 23 pictures are read
// fully, or when anything is reported that is not there.

#include "platform/ImageCodec.h"
#include "platform/plugins/PluginCodeReader.h"
#include "recognition/codes/QRCodeDetector.h"

#include <QDir>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPainter>

#include <cstdio>

using namespace Kovrel;

namespace {

constexpr int fewestRead = 23;

QList<QStringList> rowsOf(const QString& path)
{
    QFile file(path);
    QList<QStringList> rows;
    if (!file.open(QIODevice::ReadOnly))
        return rows;
    file.readLine(); // the names of the columns
    while (!file.atEnd())
        rows << QString::fromUtf8(file.readLine()).trimmed().split(u'\t');
    return rows;
}

QStringList payloads(const QString& json)
{
    QStringList texts;
    for (const QJsonValue& text : QJsonDocument::fromJson(json.toUtf8()).array())
        texts << text.toString();
    texts.sort();
    return texts;
}

QImage decoded(const QString& path)
{
    return ImageCodec::decodeFile(path).value_or(QImage());
}

QImage composed(const QDir& folder, const QStringList& row)
{
    QImage screen = decoded(folder.filePath("../screens/" + row[0])).convertToFormat(QImage::Format_RGB32);
    const QImage code = decoded(folder.filePath(row[1]));
    const double scale = row[4].toDouble();
    const QRectF place(row[2].toInt(), row[3].toInt(), code.width() * scale, code.height() * scale);
    QPainter painter(&screen);
    painter.fillRect(place, Qt::white);
    painter.drawImage(place, code);
    return screen;
}

// What became of the pictures.
class Tally {
public:
    void add(const QString& name, const QImage& image, const QString& expectedJson)
    {
        const QStringList expected = payloads(expectedJson);
        const auto codes = QRCodeDetector::detectCodesSync(image, true, true, std::nullopt, m_reader);
        QStringList found;
        for (const QRCode& code : codes.value_or(std::vector<QRCode>()))
            found << code.payload;
        found.sort();
        const bool isWrong = std::ranges::any_of(found, [&](const QString& text) { return !expected.contains(text); });
        m_wrong += isWrong;
        m_withCodes += !expected.isEmpty();
        m_read += !expected.isEmpty() && found == expected;
        std::printf("%-7s %d of %d  %s %s\n",
                    isWrong             ? "WRONG"
                    : found == expected ? "ok"
                                        : "missed",
                    int(found.size()), int(expected.size()), qUtf8Printable(name),
                    codes ? "" : qUtf8Printable(codes.error()));
    }

    // Whether enough of them came out right.
    bool report() const
    {
        std::printf("%d of %d pictures with codes read fully, %d wrong\n", m_read, m_withCodes, m_wrong);
        return m_read >= std::min(fewestRead, m_withCodes) && m_withCodes > 0 && m_wrong == 0;
    }

private:
    PluginCodeReader m_reader;
    int m_withCodes = 0;
    int m_read = 0;
    int m_wrong = 0;
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const QDir folder(application.arguments().value(1));
    Tally pictures;
    for (const QStringList& row : rowsOf(folder.filePath("manifest.tsv")))
        pictures.add(row[0], decoded(folder.filePath(row[0])), row[1]);
    Tally compositions;
    for (const QStringList& row : rowsOf(folder.filePath("composites.tsv")))
        compositions.add(row[0] + " + " + row[1], composed(folder, row), row[5]);
    const bool arePicturesRight = pictures.report();
    return compositions.report() && arePicturesRight ? 0 : 1;
}
