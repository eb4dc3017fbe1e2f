// Copies a picture, says "ready", and then says on standard error which types were made, each time one is.
// Ends when its standard input does.

#include "platform/desktop/QtClipboard.h"
#include "saving/ClipboardService.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TestPictures.h"

#include <QGuiApplication>
#include <QSocketNotifier>

#include <cstdio>

using namespace Kovrel;

namespace {

// Tells what is asked of the real one.
class TellingClipboard : public QtClipboard {
public:
    void put(std::vector<ClipboardOffer> offers) override
    {
        for (ClipboardOffer& offer : offers)
            offer.bytes = [offer] {
                std::fprintf(stderr, "made %s\n", qPrintable(offer.mimeType));
                return offer.bytes();
            };
        QtClipboard::put(std::move(offers));
    }
};

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    TellingClipboard clipboard;
    ClipboardService service(loop, workers, clipboard);
    if (application.arguments().value(1) == "text")
        service.copyText(QString::fromUtf8("grün 😀"));
    else
        service.copy(Testing::testPicture({900, 700}, Testing::Texture::noise));
    std::puts("ready");
    std::fflush(stdout);
    const QSocketNotifier input(0, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, &QGuiApplication::quit);
    return application.exec();
}
