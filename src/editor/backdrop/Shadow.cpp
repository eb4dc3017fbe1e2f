#include "editor/backdrop/Shadow.h"

namespace Kovrel {

Shadow Shadow::none()
{
    return {};
}

Shadow Shadow::subtle()
{
    return {{{0.0015, 0.004, 0.25}, {0.005, 0.02, 0.22}}};
}

Shadow Shadow::soft()
{
    return {{{0.002, 0.006, 0.25}, {0.008, 0.03, 0.25}, {0.024, 0.09, 0.36}}};
}

Shadow Shadow::deep()
{
    return {{{0.003, 0.01, 0.2}, {0.015, 0.05, 0.3}, {0.05, 0.15, 0.5}}};
}

} // namespace Kovrel
