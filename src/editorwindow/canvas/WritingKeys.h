#pragma once

class QKeyEvent;

namespace Kovrel {

class LabelEditing;

// What keys do to a text that is being written, as in every text field of the desktop, but for pasting: that takes its
// time. Main thread.
namespace WritingKeys {

// False: the key means nothing here.
bool press(LabelEditing& editing, const QKeyEvent& event);

} // namespace WritingKeys

} // namespace Kovrel
