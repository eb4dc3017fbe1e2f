#include "editor/session/Sticker.h"

#include <algorithm>

namespace Kovrel {

QImage Sticker::bounded(const QImage& picture, const EditorCapture& capture)
{
    const QSize most = capture.image.size();
    if (picture.width() <= most.width() && picture.height() <= most.height())
        return picture;
    const QSize size = picture.size().scaled(most, Qt::KeepAspectRatio).expandedTo({1, 1});
    return picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

Annotation Sticker::mark(const QImage& picture, Point middle, const EditorCapture& capture)
{
    const double width = picture.width() / capture.scale;
    const double height = picture.height() / capture.scale;
    const Rect canvas = capture.canvas();
    const double share = std::min({1.0, canvas.width / 2 / width, canvas.height / 2 / height});
    const Size half{width * share / 2, height * share / 2};
    return {
        .kind = Annotation::Kind::image,
        .points = {{middle.x - half.width, middle.y - half.height}, {middle.x + half.width, middle.y + half.height}},
        .image = picture};
}

} // namespace Kovrel
