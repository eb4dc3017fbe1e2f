#pragma once

#include "platform/DesktopPicture.h"
#include "platform/Displays.h"
#include "platform/MainLoop.h"
#include "platform/ScreenPixels.h"
#include "platform/Windows.h"

#include <map>

namespace Kovrel::Testing {

class FakeDisplays : public Displays {
public:
    DisplayList displays;

    DisplayList all() const override { return displays; }

    bool isComposited() const override { return true; }

    Subscription onChange(std::function<void()> callback) override { return m_observers.add(std::move(callback)); }

    void change(DisplayList to)
    {
        displays = std::move(to);
        m_observers.notify();
    }

private:
    Observers<> m_observers;
};

// Answers through the main loop with parts of one picture of the root window, or with the failure.
class FakeScreenPixels : public ScreenPixels {
public:
    explicit FakeScreenPixels(MainLoop& loop) : m_loop(loop) {}

    GrabbedImage root = std::unexpected(GrabFailure::noDisplay);
    std::vector<std::pair<QRect, PointerOption>> grabs;

    void grab(QRect rootPixels, PointerOption pointer, Reply<GrabbedImage> reply) override
    {
        grabs.emplace_back(rootPixels, pointer);
        m_loop.post([reply, image = root ? GrabbedImage(root->copy(rootPixels)) : root] { reply(image); });
    }

    void whenRepainted(Reply<bool> reply) override
    {
        m_loop.post([reply] { reply(true); });
    }

private:
    MainLoop& m_loop;
};

class FakeWindows : public Windows {
public:
    explicit FakeWindows(MainLoop& loop) : m_loop(loop) {}

    std::optional<std::vector<WindowInfo>> windows;
    std::map<quint32, QImage> images;

    void list(Reply<std::optional<std::vector<WindowInfo>>> reply) override
    {
        m_loop.post([reply, list = windows] { reply(list); });
    }

    void grab(quint32 windowID, Reply<GrabbedImage> reply) override
    {
        const auto found = images.find(windowID);
        const GrabbedImage image = found == images.end() ? GrabbedImage(std::unexpected(GrabFailure::windowGone))
                                                         : GrabbedImage(found->second);
        m_loop.post([reply, image] { reply(image); });
    }

private:
    MainLoop& m_loop;
};

class FakeDesktopPicture : public DesktopPicture {
public:
    explicit FakeDesktopPicture(MainLoop& loop) : m_loop(loop) {}

    std::optional<QImage> picture; // of every display, at any size
    std::vector<std::pair<quint32, int>> grabs;

    void grab(quint32 displayID, int maxPixelSize, Reply<std::optional<QImage>> reply) override
    {
        grabs.emplace_back(displayID, maxPixelSize);
        m_loop.post([reply, image = picture] { reply(image); });
    }

private:
    MainLoop& m_loop;
};

} // namespace Kovrel::Testing
