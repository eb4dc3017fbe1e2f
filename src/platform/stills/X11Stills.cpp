#include "platform/stills/X11Stills.h"

#include "platform/x11/X11Displays.h"
#include "platform/x11/X11Screen.h"
#include "platform/x11/windows/X11WindowImage.h"
#include "platform/x11/windows/X11WindowPicker.h"

namespace Kovrel {

X11Stills::X11Stills(std::shared_ptr<X11Connection> connection)
    : m_reader(std::make_shared<X11ImageReader>(std::move(connection)))
{
}

DisplayList X11Stills::displays(const ScaleLookup& scaleOf)
{
    return X11Displays::read(m_reader->connection(), scaleOf);
}

GrabbedImage X11Stills::grab(QRect rootPixels, ScreenPixels::PointerOption pointer)
{
    return X11Screen(*m_reader).grab(rootPixels, pointer);
}

GrabbedImage X11Stills::grabWindow(quint32 windowID)
{
    return X11WindowImage::grab(*m_reader, windowID);
}

std::expected<quint32, DesktopStills::PickFailure> X11Stills::pickWindow()
{
    return X11WindowPicker(m_reader->connection()).pick();
}

} // namespace Kovrel
