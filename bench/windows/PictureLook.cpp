#include "bench/windows/PictureLook.h"

#include "app/Translations.h"
#include "ui/style/AppStyle.h"
#include "ui/tokens/Motion.h"

#include <QApplication>
#include <QStyleFactory>

namespace Kovrel {

void Bench::takePictureLook(QApplication& application)
{
    constexpr int toolTipDelay = 700;
    Translations::install(application);
    Motion::shared().setReduced(true);
    QApplication::setStyle(new AppStyle([] { return toolTipDelay; }, QStyleFactory::create("Fusion")));
}

} // namespace Kovrel
