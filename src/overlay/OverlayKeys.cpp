#include "overlay/OverlayKeys.h"

#include "model/VirtualKeys.h"

namespace Kovrel {

namespace {

constexpr int shiftedStep = 10;

constexpr std::pair<quint32, QPoint> directions[] = {{VirtualKeys::left, {-1, 0}},
                                                     {VirtualKeys::right, {1, 0}},
                                                     {VirtualKeys::down, {0, 1}},
                                                     {VirtualKeys::up, {0, -1}}};

} // namespace

std::vector<OverlaySession::Key> OverlayKeys::arrows(const std::function<void(QPoint, KeyGrabs::Press)>& onStep)
{
    std::vector<OverlaySession::Key> keys;
    for (const auto& [key, direction] : directions)
        keys.push_back({key, [onStep, direction](KeyGrabs::Press press) {
                            onStep(direction * (press.modifiers & KeyCombo::shift ? shiftedStep : 1), press);
                        }});
    return keys;
}

} // namespace Kovrel
