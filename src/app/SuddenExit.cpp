#include "app/SuddenExit.h"

#include <cstdlib>
#include <utility>

namespace Kovrel {

namespace {

std::function<void()>& workAtExit()
{
    static std::function<void()> work;
    return work;
}

void doIt()
{
    if (const auto work = std::exchange(workAtExit(), nullptr))
        work();
}

} // namespace

SuddenExit::SuddenExit(std::function<void()> work)
{
    workAtExit() = std::move(work);
    static const int registered = std::atexit(doIt);
    (void)registered;
}

SuddenExit::~SuddenExit()
{
    workAtExit() = nullptr;
}

} // namespace Kovrel
