#pragma once

#include <optional>
#include <string>
#include <vector>

namespace Kovrel {

// Which values of options make sense. Any thread.
namespace OptionValues {

// Numbers with commas between them; nothing when there are not `count` or one is beyond all screens.
std::optional<std::vector<double>> numbers(const std::string& text, size_t count);

// As they are stored, too.
const std::vector<std::string>& captureModes();
bool isCaptureMode(const std::string& text);

bool isRectangle(const std::string& text); // X,Y,W,H with a width and height above 0
bool isSubject(const std::string& text);   // the same and a radius
bool isWholeNumber(const std::string& text);
bool isColorFormat(const std::string& text);
bool isAxis(const std::string& text);
bool isTolerance(const std::string& text); // of a channel
bool isEdgeFloor(const std::string& text); // of three channels together
bool isScale(const std::string& text);     // pixels to a point
// Whether the name ends in a format that can be written.
bool isPictureFile(const std::string& path);

} // namespace OptionValues

} // namespace Kovrel
