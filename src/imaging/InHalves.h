#pragma once

#include <QSize>

#include <future>

namespace Kovrel {

// Calls `work(from, to)` for the lines of a picture: for all of a small one, else for both halves at once, the upper
// one on another thread where one can be had. Any thread.
template <class Work>
void inHalves(QSize picture, const Work& work)
{
    constexpr qint64 worthAThread = 500'000; // pixels
    const bool isLarge = qint64(picture.width()) * picture.height() > worthAThread;
    if (!isLarge)
        return work(0, picture.height());
    const int half = picture.height() / 2;
    auto upper = std::async(std::launch::async | std::launch::deferred, [&] { work(0, half); });
    work(half, picture.height());
    upper.get();
}

} // namespace Kovrel
