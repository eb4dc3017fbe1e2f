// Copies a picture, or what its argument names, says "ready", and then says on standard error which types were made,
// each time one is, while its main thread does nothing but wait for the end of standard input.

#include "platform/x11/X11Clipboard.h"
#include "saving/ClipboardService.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TestPictures.h"

#include <cstdio>
#include <future>
#include <string_view>

using namespace Kovrel;

namespace {

// Tells what is asked of the real one.
class TellingClipboard : public X11Clipboard {
public:
    using X11Clipboard::X11Clipboard;

    void put(std::vector<ClipboardOffer> offers) override
    {
        for (ClipboardOffer& offer : offers)
            offer.bytes = [offer] {
                std::fprintf(stderr, "made %s\n", qPrintable(offer.mimeType));
                return offer.bytes();
            };
        X11Clipboard::put(std::move(offers));
    }
};

} // namespace

int main(int argc, char** argv)
{
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    TellingClipboard clipboard(loop, workers, std::make_unique<X11Connection>());
    ClipboardService service(loop, workers, clipboard);
    if (argc > 1 && std::string_view(argv[1]) == "text")
        service.copyText(QString::fromUtf8("grün 😀"));
    else if (argc > 1 && std::string_view(argv[1]) == "nothing, ever")
        clipboard.put({{"image/png", []() -> QByteArray {
                            std::promise<QByteArray>().get_future().wait();
                            return {};
                        }}});
    else
        service.copy(Testing::testPicture({900, 700}, Testing::Texture::noise));
    std::puts("ready");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
}
