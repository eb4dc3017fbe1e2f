#include "platform/session/X11Desktop.h"

#include "platform/desktop/AutostartEntry.h"
#include "platform/desktop/DesktopShortcuts.h"
#include "platform/plugins/PluginFileOpener.h"
#include "platform/processes/SystemPackages.h"
#include "platform/wallpaper/WallpaperSettings.h"

#include <QGuiApplication>
#include <QScreen>

#include <cstdlib>

#include <X11/Xlib.h>

namespace Kovrel {

namespace {

// Package managers read large files before they answer, and may be started for it.
constexpr auto packagePatience = std::chrono::seconds(30);

// Themes of the toolkit may bring a library with them that ends the process on the spot when the server has gone,
// before anything that is to be done at its exit.
int exitWithoutServer(::Display*)
{
    std::exit(EXIT_FAILURE);
}

double scaleOfScreen(const QString& name)
{
    for (const QScreen* screen : QGuiApplication::screens())
        if (screen->name() == name)
            return screen->devicePixelRatio();
    return qGuiApp->devicePixelRatio();
}

std::optional<QImage> wallpaperOf(const Display& display, const DisplayList& all)
{
    QRect desktop;
    for (const Display& each : all)
        desktop |= each.pixelRect;
    const auto wallpaper = WallpaperSettings::of(display, all);
    return wallpaper ? wallpaper->painted(display.pixelRect, desktop) : std::nullopt;
}

} // namespace

X11Desktop::X11Desktop(MainLoop& loop, Workers& workers) : X11Desktop(loop, workers, std::make_shared<X11Connection>())
{
}

X11Desktop::X11Desktop(MainLoop& loop, Workers& workers, const std::shared_ptr<X11Connection>& connection)
    : m_reader(std::make_shared<X11ImageReader>(connection)),
      m_displays(std::make_unique<X11Connection>(), scaleOfScreen),
      m_keys(loop, std::make_unique<X11Connection>()),
      m_pixels(loop, workers, m_reader),
      m_pointer(loop, workers, connection, m_displays),
      m_windows(loop, workers, m_reader, m_displays),
      m_picture(loop, workers, m_reader, m_displays, wallpaperOf),
      m_overlay(loop, workers, m_displays),
      m_panelShapes(std::make_unique<X11Connection>()),
      m_appearance(std::make_unique<X11Connection>()),
      m_bus{.colorSampler{loop}},
      m_clipboard(loop, workers, std::make_unique<X11Connection>()),
      m_dragAnswers(std::make_unique<X11Connection>()),
      m_programs{.forFiles{loop, workers, std::make_shared<PluginFileOpener>()}}
{
    XSetIOErrorHandler(exitWithoutServer);
    m_reader->releaseWhenIdle(loop);
    followScreens();
}

std::shared_ptr<ShortcutSwitches> X11Desktop::shortcuts()
{
    return DesktopShortcuts::find();
}

std::shared_ptr<LoginItem> X11Desktop::loginItem()
{
    return std::make_shared<AutostartEntry>(AutostartEntry::usualPath(), AutostartEntry::thisProgram());
}

std::shared_ptr<PackageManager> X11Desktop::packages()
{
    return std::make_shared<SystemPackages>(packagePatience);
}

// The X server tells of displays that come, go and move; their scale is Qt's to know.
void X11Desktop::followScreens()
{
    for (QScreen* screen : QGuiApplication::screens())
        follow(screen);
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &m_context, [this](QScreen* screen) { follow(screen); });
}

void X11Desktop::follow(QScreen* screen)
{
    m_displays.refresh();
    QObject::connect(screen, &QScreen::logicalDotsPerInchChanged, &m_context, [this] { m_displays.refresh(); });
}

} // namespace Kovrel
