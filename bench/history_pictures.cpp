// Takes a picture of every state of the history's windows into a folder, to be looked at: light and dark, at scale 1
// and 2.
//
//     QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=1 bench_history_pictures FOLDER
#include "bench/BenchPictures.h"
#include "bench/HistoryRig.h"
#include "bench/windows/PictureLook.h"
#include "historywindow/HistoryStrip.h"
#include "historywindow/lists/HistorySidebar.h"
#include "historywindow/search/HistorySearchField.h"
#include "ui/tokens/Theme.h"

#include <QApplication>

using namespace Kovrel;
using Bench::HistoryRig;

namespace {

struct Look {
    QString folder;
    ColorScheme scheme;

    void save(const QString& name, QWidget& window) const
    {
        const QString look = QString("%1-%2x").arg(scheme.isDark ? "dark" : "light").arg(window.devicePixelRatioF());
        window.grab().save(folder + '/' + name + '-' + look + ".png");
    }
};

std::vector<QImage> sources()
{
    std::vector<QImage> images;
    for (const QSize size : {QSize(1920, 1080), QSize(700, 500), QSize(300, 900)})
        for (const Bench::Picture& picture : Bench::pictures(size))
            images.push_back(picture.image);
    images.push_back(images.front().copy(0, 0, 60, 20));
    return images;
}

void settle(HistoryWindow& window)
{
    HistoryRig::waitUntil([] { return false; }, 250);
    HistoryRig::waitUntil([&] { return window.grid().isComplete(); });
    HistoryRig::waitUntil([] { return false; }, 250);
}

void type(HistoryWindow& window, const QString& text)
{
    window.findChild<HistorySearchField*>()->setText(text);
    settle(window);
}

void pictures(const Look& look, int count, const std::vector<QImage>& images)
{
    HistoryRig rig(count, images);
    HistoryWindow window(rig.services());
    window.resize(1280, 800);
    window.present();
    settle(window);
    look.save(QString("window-%1").arg(count), window);
    if (count == 0)
        return;
    const QUuid picked = rig.state().entries[4].id;
    rig.index().set({{.text = "Invoice", .confidence = 1, .boundingBox = {0.2, 0.6, 0.3, 0.05}}}, picked);
    window.grid().select(picked);
    settle(window);
    look.save(QString("window-%1-selected").arg(count), window);
    type(window, "fi");
    look.save(QString("window-%1-typing").arg(count), window);
    type(window, "invoice");
    window.grid().setFocus();
    window.grid().select(picked);
    settle(window);
    look.save(QString("window-%1-found").arg(count), window);
    type(window, "nothing has this");
    look.save(QString("window-%1-nothing").arg(count), window);
    type(window, "");
    window.findChild<HistorySidebar*>()->select(rig.state().lists.front().id);
    settle(window);
    look.save(QString("window-%1-list").arg(count), window);
    HistoryStrip strip(rig.services());
    strip.resize(1280, strip.height());
    strip.show();
    HistoryRig::waitUntil([] { return false; }, 800);
    look.save(QString("strip-%1").arg(count), strip);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc < 2)
        return 2;
    Bench::takePictureLook(application);
    QFont font = QApplication::font();
    font.setPixelSize(13);
    QApplication::setFont(font);
    QDir().mkpath(argv[1]);
    const std::vector<QImage> images = sources();
    for (const ColorScheme scheme : {ColorScheme{}, ColorScheme{true, false}}) {
        QApplication::setPalette(Theme::of(scheme).palette());
        for (const int count : {0, 12, 10000})
            pictures({argv[1], scheme}, count, images);
    }
    return 0;
}
