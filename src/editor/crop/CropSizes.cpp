#include "editor/crop/CropSizes.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

using Kind = CropOutputSize::Kind;

namespace {

// A whole number that a computation missed by a rounding error stays that number.
constexpr double nearlyWhole = 1e-6;

struct Span {
    double from;
    double to;
};

Span within(Span span, double most)
{
    const auto [from, to] = std::minmax(span.from, span.to);
    return {std::max(from, 0.0), std::min(to, most)}; // no number stays none
}

int rounded(double length)
{
    return int(std::lround(std::clamp(length, 1.0, 1e9)));
}

// The side that goes with another one in the crop's shape.
int following(int side, int cropSide, int cropOther)
{
    return rounded(double(side) * cropOther / std::max(1, cropSide));
}

QSize wanted(const CropOutputSize& choice, QSize crop)
{
    switch (choice.kind) {
    case Kind::fraction:
        return {rounded(crop.width() * choice.fraction), rounded(crop.height() * choice.fraction)};
    case Kind::width:
        return {choice.width, following(choice.width, crop.width(), crop.height())};
    case Kind::height:
        return {following(choice.height, crop.height(), crop.width()), choice.height};
    case Kind::free:
        return {choice.width, choice.height};
    }
    return crop;
}

// Made smaller in its shape until it is within bounds.
QSize bounded(QSize size, QSize crop)
{
    const int longest = std::max({CropSizes::longestTypedSide, crop.width(), crop.height()});
    const double most = double(std::max(CropSizes::mostTypedPixels, qint64(crop.width()) * crop.height()));
    const double width = std::max(1, size.width());
    const double height = std::max(1, size.height());
    const double share = std::min({1.0, longest / std::max(width, height), std::sqrt(most / (width * height))});
    if (share == 1)
        return {int(width), int(height)};
    return {std::max(1, int(width * share)), std::max(1, int(height * share))};
}

int boundedSide(int side, int cropSide)
{
    return std::clamp(side, 1, std::max(CropSizes::longestTypedSide, cropSide));
}

} // namespace

QRect CropSizes::pixelRect(const Rect& region, Size canvasSize, double pixelsScale, QSize imagePixels)
{
    const auto [left, right] = within({region.x, region.x + region.width}, canvasSize.width);
    const auto [bottom, top] = within({region.y, region.y + region.height}, canvasSize.height);
    if (!(left < right && bottom < top))
        return {};
    const auto down = [&](double y) { return (canvasSize.height - y) * pixelsScale; };
    const auto first = [](double place) { return int(std::floor(std::clamp(place, 0.0, 1e9) + nearlyWhole)); };
    const auto last = [](double place) { return int(std::ceil(std::clamp(place, 0.0, 1e9) - nearlyWhole)); };
    const QPoint topLeft(first(left * pixelsScale), first(down(top)));
    const QPoint bottomRight(last(right * pixelsScale), last(down(bottom)));
    return QRect(topLeft, bottomRight - QPoint(1, 1)) & QRect({0, 0}, imagePixels);
}

std::array<QSize, CropSizes::fractions.size()> CropSizes::presets(QSize crop)
{
    std::array<QSize, fractions.size()> sizes;
    std::ranges::transform(fractions, sizes.begin(),
                           [&](double fraction) { return pixels(CropOutputSize::ofFraction(fraction), crop); });
    return sizes;
}

QSize CropSizes::pixels(const CropOutputSize& choice, QSize crop)
{
    const QSize size = bounded(wanted(choice, crop), crop);
    const bool isReduction = choice.kind == Kind::fraction && choice.fraction < 1;
    return isReduction ? size.expandedTo({leastReducedSide, leastReducedSide}) : size;
}

std::optional<int> CropSizes::typedSide(QStringView text)
{
    QStringView digits = text.trimmed();
    if (digits.endsWith(u"px", Qt::CaseInsensitive))
        digits = digits.chopped(2).trimmed();
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    if (digits.isEmpty() || !std::ranges::all_of(digits, isDigit))
        return std::nullopt;
    bool isShort = false;
    const int side = digits.toInt(&isShort);
    return isShort ? std::clamp(side, 1, longestTypedSide) : longestTypedSide;
}

CropOutputSize CropSizes::typedWidth(int width, const CropOutputSize& before, QSize crop, bool isAspectLocked)
{
    const int side = boundedSide(width, crop.width());
    return isAspectLocked ? CropOutputSize::ofWidth(side)
                          : CropOutputSize::ofFree({side, pixels(before, crop).height()});
}

CropOutputSize CropSizes::typedHeight(int height, const CropOutputSize& before, QSize crop, bool isAspectLocked)
{
    const int side = boundedSide(height, crop.height());
    return isAspectLocked ? CropOutputSize::ofHeight(side)
                          : CropOutputSize::ofFree({pixels(before, crop).width(), side});
}

CropOutputSize CropSizes::withAspectLock(bool isLocked, const CropOutputSize& before, QSize crop)
{
    if (isLocked == isAspectLocked(before))
        return before;
    const QSize size = pixels(before, crop);
    return isLocked ? CropOutputSize::ofWidth(size.width()) : CropOutputSize::ofFree(size);
}

bool CropSizes::isAspectLocked(const CropOutputSize& choice)
{
    return choice.kind != Kind::free;
}

} // namespace Kovrel
