// redaction: how much of blurred text can be had back. Pages of letters of several heights are blurred as redactions
// are, deconvolved by a Wiener filter that knows the kernel, for several guesses of the noise, and read by the
// tesseract command. Ends with 1 when more than a twentieth of the words is found, or when the pages can't be read
// unblurred.

#include "editor/marks/LabelText.h"
#include "editor/marks/RedactionSources.h"
#include "imaging/GaussianBlur.h"

#include <QGuiApplication>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <cstdio>

using namespace Kovrel;

namespace {

constexpr double mostFound = 0.05;
const char* const text = "Please transfer the amount before Friday and keep the password secret: violet harbour "
                         "engine window forest number seventeen. The account belongs to nobody else and every "
                         "letter of this message should vanish under the brush.";

QImage page(double height, double scale, const QColor& ground, const QColor& ink)
{
    const LabelText label(text, height, 24 * height);
    QImage image(int((label.size().width + 60) * scale), int((label.size().height + 60) * scale), QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(QTransform(1, 0, 0, -1, 0, image.height()));
    label.draw(painter, {30 * scale, image.height() - 30 * scale}, scale, ink);
    return image;
}

cv::Mat greyOf(const QImage& image)
{
    const QImage grey = image.convertToFormat(QImage::Format_Grayscale8);
    cv::Mat mat(grey.height(), grey.width(), CV_8UC1, const_cast<uchar*>(grey.constBits()),
                size_t(grey.bytesPerLine()));
    cv::Mat floats;
    mat.convertTo(floats, CV_32F);
    return floats;
}

// The kernel's spectrum is real: exp(-2 pi^2 sigma^2 f^2).
cv::Mat wiener(const cv::Mat& blurred, double sigma, double noise)
{
    cv::Mat spectrum;
    cv::dft(blurred, spectrum, cv::DFT_COMPLEX_OUTPUT);
    for (int y = 0; y < spectrum.rows; ++y)
        for (int x = 0; x < spectrum.cols; ++x) {
            const double fy = double(std::min(y, spectrum.rows - y)) / spectrum.rows;
            const double fx = double(std::min(x, spectrum.cols - x)) / spectrum.cols;
            const double kernel = std::exp(-2 * CV_PI * CV_PI * sigma * sigma * (fx * fx + fy * fy));
            spectrum.at<cv::Vec2f>(y, x) *= float(kernel / (kernel * kernel + noise));
        }
    cv::Mat sharp;
    cv::idft(spectrum, sharp, cv::DFT_SCALE | cv::DFT_REAL_OUTPUT);
    cv::normalize(sharp, sharp, 0, 255, cv::NORM_MINMAX, CV_8U);
    return sharp;
}

QSet<QString> wordsOf(const QString& all)
{
    QSet<QString> words;
    for (const QString& word : all.toLower().split(QRegularExpression("[^a-z]+")))
        if (word.size() > 2)
            words.insert(word);
    return words;
}

double shareFound(const QImage& image)
{
    static const QTemporaryDir folder;
    const QString file = folder.filePath("page.png");
    image.save(file);
    QProcess tesseract;
    tesseract.start("tesseract", {file, "-", "--psm", "6"});
    tesseract.waitForFinished(60'000);
    const QSet<QString> truth = wordsOf(text);
    return double((wordsOf(QString::fromUtf8(tesseract.readAllStandardOutput())) & truth).size()) /
           double(truth.size());
}

QImage imageOf(const cv::Mat& grey)
{
    return QImage(grey.data, grey.cols, grey.rows, qsizetype(grey.step), QImage::Format_Grayscale8).copy();
}

// The greatest share of words that is read after the filter, over all guesses of the noise.
double shareAfter(const QImage& blurred, double sigma)
{
    double most = 0;
    for (const double noise : {1e-1, 1e-2, 1e-3, 1e-4, 1e-5, 1e-6, 1e-7, 1e-8})
        most = std::max(most, shareFound(imageOf(wiener(greyOf(blurred), sigma, noise))));
    return most;
}

// Capitals of 20 points stand in a text of 27. A fifth of the blur shows that the filter does find what is there.
bool measure(double fontSize, double scale, bool isDark)
{
    const QImage sharp = page(fontSize, scale, isDark ? Qt::black : Qt::white, isDark ? Qt::white : Qt::black);
    const double sigma = RedactionSources::blurSigma(scale);
    const double before = shareFound(sharp);
    const double weak = shareAfter(GaussianBlur::blurred(sharp, sigma / 5, GaussianBlur::Edges::repeated), sigma / 5);
    const double after = shareAfter(RedactionSources::blurred(sharp, scale), sigma);
    std::printf(
        "%4.0f points, scale %.0f, %-5s: words read %3.0f %%, after a fifth of the blur %3.0f %%, after the blur "
        "%3.0f %%%s\n",
        fontSize, scale, isDark ? "dark" : "light", 100 * before, 100 * weak, 100 * after,
        after > mostFound ? "  MISSED" : "");
    return after <= mostFound && before > 0.8 && weak > 0.5;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("OMP_THREAD_LIMIT", "1");
    const QGuiApplication application(argc, argv);
    bool isGood = true;
    for (const double fontSize : {14.0, 20.0, 27.0})
        for (const double scale : {1.0, 2.0})
            for (const bool isDark : {false, true})
                isGood &= measure(fontSize, scale, isDark);
    return isGood ? 0 : 1;
}
