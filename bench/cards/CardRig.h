#pragma once

#include "cards/QuickAccessController.h"
#include "cards/panels/CardPanels.h"
#include "tests/support/TempFolder.h"
#include "tests/support/desktop/FakeDisplays.h"
#include "tests/support/desktop/FakePanelShapes.h"

namespace Kovrel::Bench {

// A pile and its windows, on whatever loop and workers. Its cards stay until they are closed.
struct CardRig {
    CardRig(MainLoop& loop, Workers& workers, DisplayList screens)
        : panels({loop, preferences, displays, shapes}),
          controller({loop, workers, preferences, displays, ports, folder.path()}, panels)
    {
        Preferences::registerDefaults(defaults);
        preferences.set(Settings::previewDurationSeconds, -1.0);
        displays.displays = std::move(screens);
        panels.setController(controller);
        controller.start();
    }

    QUuid present(const QImage& image)
    {
        const QUuid id = QUuid::createUuid();
        controller.present({.result = {.id = id, .image = image, .pixelScale = displays.displays.front().scale}});
        return id;
    }

    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    Testing::FakeDisplays displays;
    Testing::FakePanelShapes shapes;
    Ports ports;
    CardPanels panels;
    QuickAccessController controller;
};

} // namespace Kovrel::Bench
