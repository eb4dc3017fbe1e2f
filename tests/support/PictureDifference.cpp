#include "tests/support/PictureDifference.h"

#include <QDir>

#include <algorithm>
#include <cstdlib>

namespace Kovrel::Testing {

namespace {

int channelDifference(QRgb one, QRgb other)
{
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other)), std::abs(qAlpha(one) - qAlpha(other))});
}

// Black where the pictures are the same, white where they differ in anything.
QImage differenceOf(const QImage& actual, const QImage& expected)
{
    QImage difference(actual.size().boundedTo(expected.size()), QImage::Format_RGB32);
    for (int y = 0; y < difference.height(); ++y)
        for (int x = 0; x < difference.width(); ++x)
            difference.setPixel(x, y, actual.pixel(x, y) == expected.pixel(x, y) ? 0xff000000 : 0xffffffff);
    return difference;
}

QString artifactsFolder()
{
    return qEnvironmentVariable("KOVREL_TEST_ARTIFACTS", FAILED_PICTURES);
}

QString currentTest()
{
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    return QString("%1.%2").arg(test->test_suite_name(), test->name()).replace('/', '-');
}

// Each failure of a test has a folder of its own, the same ones in every run.
QDir folderOfFailure()
{
    static int failures = 0;
    const QString number = ++failures == 1 ? QString() : '-' + QString::number(failures);
    const QDir folder(artifactsFolder() + '/' + currentTest() + number);
    folder.mkpath(".");
    return folder;
}

std::string firstDifference(const QImage& actual, const QImage& expected)
{
    for (int y = 0; y < actual.height(); ++y)
        for (int x = 0; x < actual.width(); ++x)
            if (actual.pixel(x, y) != expected.pixel(x, y))
                return "pixel " + std::to_string(x) + "," + std::to_string(y) + ", by at most " +
                       std::to_string(largestDifference(actual, expected)) + " in any";
    return "no pixel, but format or depth";
}

std::string describedDifference(const QImage& actual, const QImage& expected)
{
    if (actual.size() != expected.size())
        return "size " + std::to_string(actual.width()) + "x" + std::to_string(actual.height()) + " instead of " +
               std::to_string(expected.width()) + "x" + std::to_string(expected.height());
    return firstDifference(actual, expected);
}

testing::AssertionResult different(const QImage& actual, const QImage& expected)
{
    const QDir folder = folderOfFailure();
    expected.save(folder.filePath("expected.png"));
    actual.save(folder.filePath("actual.png"));
    differenceOf(actual, expected).save(folder.filePath("difference.png"));
    return testing::AssertionFailure() << "the picture differs: " << describedDifference(actual, expected) << "; see "
                                       << folder.path().toStdString();
}

testing::AssertionResult judged(bool isSame, const QImage& actual, const QImage& expected)
{
    return isSame ? testing::AssertionSuccess() : different(actual, expected);
}

QImage opaque(QImage image)
{
    image.convertTo(QImage::Format_ARGB32);
    image.reinterpretAsFormat(QImage::Format_RGB32);
    return image;
}

} // namespace

int largestDifference(const QImage& one, const QImage& other)
{
    if (one.size() != other.size())
        return 256;
    int largest = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            largest = std::max(largest, channelDifference(one.pixel(x, y), other.pixel(x, y)));
    return largest;
}

testing::AssertionResult samePicture(const QImage& actual, const QImage& expected, int tolerance)
{
    return judged(largestDifference(actual, expected) <= tolerance, actual, expected);
}

testing::AssertionResult sameColors(const QImage& actual, const QImage& expected)
{
    return samePicture(opaque(actual), opaque(expected));
}

testing::AssertionResult identicalPicture(const QImage& actual, const QImage& expected)
{
    return judged(actual == expected, actual, expected);
}

} // namespace Kovrel::Testing
