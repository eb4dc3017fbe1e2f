#pragma once

#include <functional>

class QKeyEvent;
class QString;

namespace Kovrel {

class LabelEditing;

// What keys do to a text that is being written, as in every text field of the desktop, but for pasting: that takes its
// time. Main thread.
namespace WritingKeys {

// False: the key means nothing here. `copy`: puts a text on the clipboard.
bool press(LabelEditing& editing, const QKeyEvent& event, const std::function<void(const QString&)>& copy);

} // namespace WritingKeys

} // namespace Kovrel
