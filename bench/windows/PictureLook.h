#pragma once

class QApplication;

namespace Kovrel::Bench {

// What the real program sets up before it shows a window, over a style that is on every machine: its language, its
// style, nothing that moves.
void takePictureLook(QApplication& application);

} // namespace Kovrel::Bench
