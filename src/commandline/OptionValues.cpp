#include "commandline/OptionValues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace Kovrel {

namespace {

constexpr std::array<const char*, 7> pictureExtensions{"png", "jpeg", "jpg", "heic", "heif", "tiff", "tif"};

// Of the letters of extensions, in every language: a Turkish I has another small letter.
std::string lower(std::string text)
{
    std::ranges::transform(text, text.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
    return text;
}

std::string fileExtension(const std::string& path)
{
    const std::string name = path.substr(path.rfind('/') + 1);
    const size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : lower(name.substr(dot + 1));
}

bool isWholeNumberUpTo(const std::string& text, int most)
{
    return OptionValues::isWholeNumber(text) && std::stoi(text) >= 0 && std::stoi(text) <= most;
}

} // namespace

std::optional<std::vector<double>> OptionValues::numbers(const std::string& text, size_t count)
{
    std::vector<double> all;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (all.size() < count) {
        const int separators = all.empty() ? 0 : 1;
        if (separators != 0 && (at == end || *at != ','))
            return std::nullopt;
        double number = 0;
        const auto [next, error] = std::from_chars(at + separators, end, number);
        if (error != std::errc() || !(std::abs(number) < 1e6))
            return std::nullopt;
        all.push_back(number);
        at = next;
    }
    return at == end ? std::optional(all) : std::nullopt;
}

const std::vector<std::string>& OptionValues::captureModes()
{
    static const std::vector<std::string> modes{"area", "window", "fullScreen", "lastArea", "ocrRegion", "timed"};
    return modes;
}

bool OptionValues::isCaptureMode(const std::string& text)
{
    return std::ranges::find(captureModes(), text) != captureModes().end();
}

bool OptionValues::isRectangle(const std::string& text)
{
    const auto four = numbers(text, 4);
    return four && (*four)[2] > 0 && (*four)[3] > 0;
}

bool OptionValues::isSubject(const std::string& text)
{
    const auto five = numbers(text, 5);
    return five && (*five)[2] > 0 && (*five)[3] > 0 && (*five)[4] >= 0;
}

bool OptionValues::isWholeNumber(const std::string& text)
{
    const auto one = numbers(text, 1);
    return one && std::trunc(one->front()) == one->front() && text.find_first_of(".eE") == std::string::npos;
}

bool OptionValues::isColorFormat(const std::string& text)
{
    return text == "hex" || text == "rgb" || text == "hsl" || text == "oklch";
}

bool OptionValues::isAxis(const std::string& text)
{
    return text == "horizontal" || text == "vertical";
}

bool OptionValues::isTolerance(const std::string& text)
{
    return isWholeNumberUpTo(text, 255);
}

bool OptionValues::isEdgeFloor(const std::string& text)
{
    return isWholeNumberUpTo(text, 3 * 255);
}

bool OptionValues::isScale(const std::string& text)
{
    const auto one = numbers(text, 1);
    return one && one->front() >= 0.25 && one->front() <= 16;
}

bool OptionValues::isPictureFile(const std::string& path)
{
    const std::string extension = fileExtension(path);
    return std::ranges::any_of(pictureExtensions, [&](const char* known) { return extension == known; });
}

} // namespace Kovrel
