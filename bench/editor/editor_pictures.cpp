// Takes a picture of every state of the editor's window into a folder, to be looked at: light and dark, both in high
// contrast, and light with a font that is half as large again.
//
//     QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=1 bench_editor_pictures FOLDER
#include "bench/editor/EditorRig.h"
#include "bench/windows/PictureLook.h"
#include "editor/backdrop/BackdropLooks.h"
#include "editorwindow/backdrop/BackdropPanel.h"
#include "editorwindow/crop/CropBar.h"
#include "editorwindow/crop/CropSizeMenu.h"
#include "editorwindow/find/FindBar.h"
#include "ports/TextReader.h"
#include "ui/tokens/Theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QLineEdit>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

using namespace Kovrel;

namespace {

// On the main thread, at once: what is measured or looked at is there in the end.
struct WorkersAtOnce : Workers {
    using Workers::submit;

    void submit(Lane, QualityOfService, std::function<void()> job) override { job(); }
};

QFont pageFont()
{
    QFont font("DejaVu Sans");
    font.setPixelSize(16);
    return font;
}

QString lineOfPage(int line)
{
    return QString("Position %1: paint, brushes and 12 sheets of paper").arg(line + 1);
}

// A page of text in a window.
QImage page(double scale)
{
    QImage image((QSizeF(760, 480) * scale).toSize(), QImage::Format_RGB32);
    image.fill(QColor("#fbfbfd"));
    QPainter painter(&image);
    painter.scale(scale, scale);
    painter.fillRect(QRect(0, 0, 760, 44), QColor("#e6e9f2"));
    painter.setFont(pageFont());
    painter.setPen(QColor("#2b2f3a"));
    painter.drawText(QRect(20, 0, 700, 44), Qt::AlignVCenter, "Invoice 2041 — Meadow & Sons");
    for (int line = 0; line < 12; ++line)
        painter.drawText(20, 84 + 32 * line, lineOfPage(line));
    return image;
}

struct Rig : Bench::EditorRig {
    explicit Rig(const QString& folder) : EditorRig(folder, atOnce) {}

    std::unique_ptr<EditorWindow> window(EditorDocument document = {})
    {
        const double scale = qApp->devicePixelRatio();
        return EditorRig::window(page(scale), scale, std::move(document));
    }

    WorkersAtOnce atOnce;
};

struct Look {
    QString folder;
    ColorScheme scheme;
    bool hasLargeFont;

    void save(const QString& name, QWidget& window) const
    {
        Rig::settle();
        const QString look = QString("%1%2-%3x%4")
                                 .arg(scheme.isDark ? "dark" : "light", scheme.isHighContrast ? "-contrast" : "",
                                      QString::number(window.devicePixelRatioF()), hasLargeFont ? "-large" : "");
        window.grab().save(folder + '/' + name + '-' + look + ".png");
    }
};

// By its text in that context, in the user's language.
void click(QWidget& window, const char* context, const char* text)
{
    const QString name = QCoreApplication::translate(context, text);
    for (auto* const button : window.findChildren<QAbstractButton*>())
        if (button->accessibleName() == name || button->text() == name)
            return button->click();
    qWarning("There is no %s", qUtf8Printable(name));
}

void tools(const Look& look, Rig& rig)
{
    const auto window = rig.window();
    for (const EditorTool tool : {EditorTool::select, EditorTool::arrow, EditorTool::rectangle, EditorTool::text}) {
        window->session().setTool(tool);
        look.save("editor-" + rawString(tool), *window);
    }
}

void backdrops(const Look& look, Rig& rig)
{
    constexpr auto fills = "Kovrel::BackdropFills";
    EditorDocument document;
    document.composition.backdrop = BackdropLooks::all()[4].backdrop;
    rig.preferences.set(Settings::backdropCustomColors, {"#3B7A57"});
    const auto window = rig.window(document);
    click(*window, "Kovrel::EditorTopBar", "Backdrop (Ctrl+B)");
    look.save("backdrop", *window);
    for (const char* const section : {"Looks", "Gradients"})
        click(*window, fills, section);
    look.save("backdrop-unfolded", *window);
    for (const char* const section : {"Pictures", "Colours"})
        click(*window, fills, section);
    auto* const scroll = window->findChild<BackdropPanel*>()->findChild<QScrollArea*>();
    Rig::settle();
    scroll->verticalScrollBar()->setValue(scroll->verticalScrollBar()->maximum());
    look.save("backdrop-lower", *window);
    for (const char* const section : {"Looks", "Gradients", "Pictures", "Colours"})
        click(*window, fills, section);
    click(*window, fills, "No Backdrop");
    scroll->verticalScrollBar()->setValue(0);
    look.save("backdrop-none", *window);
}

// The text is where it is drawn.
struct PageReader : TextReader {
    void expectReading() override {}

    void read(QImage, double, std::stop_token, Reply<Reading> reply) override { reply({}); }

    void readText(QImage, QualityOfService, bool, std::stop_token, Reply<OCROutcome> reply) override
    {
        OCRResult text;
        const QFontMetricsF metrics(pageFont());
        for (int line = 0; line < 12; ++line) {
            const QString words = lineOfPage(line);
            OCRLine read{.text = words, .confidence = 1};
            read.boundingBox = {20 / 760.0, 1 - (88 + 32 * line) / 480.0, metrics.horizontalAdvance(words) / 760,
                                18 / 480.0};
            for (qsizetype at = 0; at < words.size(); ++at)
                read.characterCenters.push_back(
                    (20 + metrics.horizontalAdvance(words.first(at)) + metrics.horizontalAdvance(words[at]) / 2) / 760);
            text.lines.push_back(read);
        }
        reply(text);
    }

    void readCodes(QImage, Reply<std::optional<std::vector<QRCode>>> reply) override { reply({}); }
};

void crops(const Look& look, Rig& rig)
{
    EditorDocument document;
    document.composition.crop = Rect{100, 80, 480, 320};
    document.composition.backdrop = BackdropLooks::all()[0].backdrop;
    const auto window = rig.window(document);
    look.save("cropped", *window);
    window->session().setTool(EditorTool::crop);
    Rig::settleFor(1500);
    look.save("crop", *window);
    window->findChild<CropBar*>()->offerSizes({300, 300});
    Rig::settleFor(1500);
    look.save("crop-sizes", *window->findChild<CropSizeMenu*>());
}

void finds(const Look& look, Rig& rig)
{
    PageReader reader;
    rig.ports.textReader.offer(reader);
    const auto window = rig.window();
    click(*window, "Kovrel::EditorTopBar", "Find Text (Ctrl+F)");
    look.save("find", *window);
    window->findChild<FindBar*>()->findChild<QLineEdit*>()->setText("brushes");
    window->findChild<FindBar*>()->go(2);
    look.save("find-found", *window);
    click(*window, "Kovrel::FindBar", "Redact All");
    look.save("find-redacted", *window);
    rig.ports = {};
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc < 2)
        return 2;
    Bench::takePictureLook(application);
    QDir().mkpath(argv[1]);
    const std::pair<ColorScheme, int> looks[] = {
        {{}, 13}, {{true, false}, 13}, {{false, true}, 13}, {{true, true}, 13}, {{}, 20}};
    for (const auto& [scheme, pixelSize] : looks) {
        QFont font = QApplication::font();
        font.setPixelSize(pixelSize);
        QApplication::setFont(font);
        QApplication::setPalette(Theme::of(scheme).palette());
        const Look look{argv[1], scheme, pixelSize > 13};
        Rig rig(argv[1]);
        tools(look, rig);
        backdrops(look, rig);
        crops(look, rig);
        finds(look, rig);
    }
    return 0;
}
