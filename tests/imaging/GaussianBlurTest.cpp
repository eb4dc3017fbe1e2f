#include "imaging/GaussianBlur.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

#include <set>

namespace Kovrel {

using GaussianBlur::Edges;

namespace {

struct Shape {
    const char* name;
    QImage image;
};

// The definition: every value weighted by the Gaussian of its distance, in double precision.
class Exact {
public:
    Exact(const QImage& image, double sigma, Edges edges) : m_image(image), m_edges(edges)
    {
        m_reach = int(std::ceil(5 * sigma));
        double sum = 0;
        for (int offset = -m_reach; offset <= m_reach; ++offset)
            sum += weight(offset, sigma);
        for (int offset = -m_reach; offset <= m_reach; ++offset)
            m_kernel.push_back(weight(offset, sigma) / sum);
    }

    // The greatest difference of a picture from the exact blur.
    double differenceOf(const QImage& blurred)
    {
        m_channels = m_image.depth() / 8;
        const int values = m_image.width() * m_channels;
        std::vector<double> rows(size_t(values * m_image.height()));
        for (int y = 0; y < m_image.height(); ++y)
            for (int value = 0; value < values; ++value)
                rows[size_t(y * values + value)] = alongRow(y, value);
        double greatest = 0;
        for (int y = 0; y < m_image.height(); ++y)
            for (int value = 0; value < values; ++value)
                greatest = std::max(
                    greatest, std::abs(alongColumn(rows, values, y, value) - double(blurred.constScanLine(y)[value])));
        return greatest;
    }

private:
    static double weight(int offset, double sigma) { return std::exp(-offset * offset / (2 * sigma * sigma)); }

    // The place of a pixel that may lie outside; no value where nothing is.
    std::optional<int> inside(int place, int length) const
    {
        if (place < 0 || place >= length)
            return m_edges == Edges::transparent ? std::nullopt : std::optional(std::clamp(place, 0, length - 1));
        return place;
    }

    double alongRow(int y, int value) const
    {
        double sum = 0;
        for (int offset = -m_reach; offset <= m_reach; ++offset)
            if (const auto x = inside(value / m_channels + offset, m_image.width()))
                sum +=
                    m_kernel[size_t(offset + m_reach)] * m_image.constScanLine(y)[*x * m_channels + value % m_channels];
        return sum;
    }

    double alongColumn(const std::vector<double>& rows, int values, int row, int value) const
    {
        double sum = 0;
        for (int offset = -m_reach; offset <= m_reach; ++offset)
            if (const auto y = inside(row + offset, m_image.height()))
                sum += m_kernel[size_t(offset + m_reach)] * rows[size_t(*y * values + value)];
        return sum;
    }

    const QImage& m_image;
    Edges m_edges;
    int m_reach;
    int m_channels = 1;
    std::vector<double> m_kernel;
};

QImage grey(QSize size, const std::function<int(int x, int y)>& valueAt)
{
    QImage image(size, QImage::Format_Grayscale8);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.scanLine(y)[x] = uchar(valueAt(x, y));
    return image;
}

std::vector<Shape> shapes()
{
    return {
        {"single pixel", grey({1, 1}, [](int, int) { return 255; })},
        {"column", grey({1, 150}, [](int, int y) { return y < 70 ? 255 : 0; })},
        {"everything", grey({90, 61}, [](int, int) { return 255; })},
        {"rectangle", grey({151, 97}, [](int x, int y) { return x > 40 && x < 110 && y > 30 ? 255 : 0; })},
        {"stripes", grey({120, 80}, [](int x, int) { return x % 20 < 10 ? 255 : 0; })},
        {"fine stripes", grey({90, 70}, [](int x, int) { return x % 5 < 3 ? 255 : 0; })},
        {"checkerboard", grey({120, 80}, [](int x, int y) { return (x + y) % 2 ? 255 : 0; })},
        {"colours", Testing::testPicture({101, 67}, Testing::Texture::noise)},
        {"translucent", Testing::translucent(Testing::testPicture({67, 101}, Testing::Texture::blocks))
                            .convertToFormat(QImage::Format_ARGB32_Premultiplied)},
    };
}

} // namespace

TEST(GaussianBlurTest, IsTheExactOneToTheLevel)
{
    for (const auto& [name, image] : shapes()) {
        for (const double sigma : {0.7, 5.0, 13.0, 36.0}) {
            for (const Edges edges : {Edges::transparent, Edges::repeated}) {
                const QImage blurred = GaussianBlur::blurred(image, sigma, edges);
                ASSERT_EQ(blurred.format(), image.format());
                ASSERT_EQ(blurred.size(), image.size());
                EXPECT_LE(Exact(image, sigma, edges).differenceOf(blurred), 1.0)
                    << name << ", sigma " << sigma << (edges == Edges::transparent ? ", transparent" : ", repeated");
            }
        }
    }
}

TEST(GaussianBlurTest, FineColoursStayFine)
{
    const QImage image = Testing::testPicture({101, 67}, Testing::Texture::noise);
    for (const double sigma : {2.0, 13.0}) {
        const QImage coarse = GaussianBlur::blurred(image, sigma, Edges::repeated);
        const QImage fine = GaussianBlur::blurred(image.convertToFormat(QImage::Format_RGBX64), sigma, Edges::repeated);
        ASSERT_EQ(fine.format(), QImage::Format_RGBX64);
        EXPECT_TRUE(Testing::samePicture(fine.convertToFormat(QImage::Format_RGB32), coarse, 1)) << sigma;
        std::set<int> levels;
        for (int x = 0; x < fine.width(); ++x)
            levels.insert(fine.pixelColor(x, 30).rgba64().red() % 257);
        EXPECT_GT(levels.size(), 30u) << sigma; // between those of 8 bits
    }
}

TEST(GaussianBlurTest, ASigmaThatIsNoneChangesNothing)
{
    const QImage image = Testing::testPicture({20, 10}, Testing::Texture::noise);
    for (const double sigma : {0.0, -1.0, 1e-200, 0.2, std::nan("")})
        EXPECT_TRUE(Testing::identicalPicture(GaussianBlur::blurred(image, sigma, Edges::repeated), image)) << sigma;
    EXPECT_TRUE(GaussianBlur::blurred(QImage(), 5, Edges::repeated).isNull());
}

TEST(GaussianBlurTest, AHugeSigmaLeavesTheMeanOrNothing)
{
    const QImage image = grey({64, 48}, [](int x, int) { return x < 32 ? 200 : 100; });
    for (const double sigma : {1e4, 1e300, std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(GaussianBlur::blurred(image, sigma, Edges::transparent).constScanLine(24)[32], 0) << sigma;
        EXPECT_NEAR(GaussianBlur::blurred(image, sigma, Edges::repeated).constScanLine(24)[32], 150, 3) << sigma;
    }
}

} // namespace Kovrel
