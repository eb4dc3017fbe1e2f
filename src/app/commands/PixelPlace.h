#pragma once

#include "commandline/Command.h"
#include "model/CommandAnswer.h"

#include <QImage>

namespace Kovrel {

// The operands FILE X Y, as the command line has checked them: a pixel counted from the top left of a picture.
struct PixelPlace {
    QString file;
    int x = 0;
    int y = 0;

    static PixelPlace of(const Command& command);
    // What a command answers when the picture has no such pixel.
    CommandAnswer outside(const QImage& picture) const;
};

} // namespace Kovrel
