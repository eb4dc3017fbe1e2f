// Takes a picture of every state of the editor's window into a folder, to be looked at: light and dark, both in high
// contrast.
//
//     QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=1 bench_editor_pictures FOLDER
#include "editor/backdrop/BackdropLooks.h"
#include "editorwindow/EditorWindow.h"
#include "editorwindow/backdrop/BackdropPanel.h"
#include "editorwindow/crop/CropBar.h"
#include "editorwindow/crop/CropSizeMenu.h"
#include "editorwindow/find/FindBar.h"
#include "platform/Clipboard.h"
#include "platform/SavePanel.h"
#include "platform/desktop/QtMainLoop.h"
#include "ports/TextReader.h"
#include "ui/tokens/Motion.h"
#include "ui/tokens/Theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QLineEdit>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleFactory>

using namespace Kovrel;

namespace {

// On the main thread, at once: a picture shows what is there in the end.
struct WorkersAtOnce : Workers {
    using Workers::submit;

    void submit(Lane, QualityOfService, std::function<void()> job) override { job(); }
};

struct NoSavePanel : SavePanel {
    void ask(const QString&, QWindow*, Reply<std::optional<QString>> reply) override { reply({}); }
};

struct NoClipboard : Clipboard {
    void put(std::vector<ClipboardOffer>) override {}

    void putText(const QString&) override {}

    void read(QStringList, Reply<std::optional<ClipboardContent>> reply) override { reply({}); }

    void readText(Reply<std::optional<QString>> reply) override { reply({}); }
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

struct Rig {
    explicit Rig(const QString& folder) : defaults(folder + "/kovrel.conf")
    {
        Preferences::registerDefaults(defaults);
        preferences.set(Settings::lastEditorTool, EditorTool::select);
    }

    std::unique_ptr<EditorWindow> window(EditorDocument document = {})
    {
        const double scale = qApp->devicePixelRatio();
        EditedCaptures::Opened opened{{QUuid::createUuid(), page(scale), scale, {}}, std::move(document), {}};
        auto made = std::make_unique<EditorWindow>(services, std::move(opened), EditorWindow::Kind::file, "Page");
        made->resize(1240, 760);
        made->show();
        settle();
        return made;
    }

    static void settle()
    {
        for (int round = 0; round < 20; ++round)
            QCoreApplication::processEvents();
    }

    static void settleFor(int milliseconds)
    {
        for (const QDeadlineTimer deadline(milliseconds); !deadline.hasExpired();)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }

    UserDefaults defaults;
    Preferences preferences{defaults};
    QtMainLoop loop;
    WorkersAtOnce workers;
    NoSavePanel savePanel;
    NoClipboard clipboard;
    Ports ports;
    EditorServices services{loop, workers, preferences, savePanel, clipboard, ports, QDir::tempPath()};
};

struct Look {
    QString folder;
    ColorScheme scheme;

    void save(const QString& name, QWidget& window) const
    {
        Rig::settle();
        const QString look = QString("%1%2-%3x")
                                 .arg(scheme.isDark ? "dark" : "light", scheme.isHighContrast ? "-contrast" : "",
                                      QString::number(window.devicePixelRatioF()));
        window.grab().save(folder + '/' + name + '-' + look + ".png");
    }
};

void click(QWidget& window, const QString& name)
{
    for (auto* const button : window.findChildren<QAbstractButton*>())
        if (button->accessibleName().startsWith(name) || button->text() == name)
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
    EditorDocument document;
    document.composition.backdrop = BackdropLooks::all()[4].backdrop;
    rig.preferences.set(Settings::backdropCustomColors, {"#3B7A57"});
    const auto window = rig.window(document);
    click(*window, "Backdrop");
    look.save("backdrop", *window);
    for (const char* const section : {"Looks", "Gradients"})
        click(*window, section);
    look.save("backdrop-unfolded", *window);
    for (const char* const section : {"Pictures", "Colours"})
        click(*window, section);
    auto* const scroll = window->findChild<BackdropPanel*>()->findChild<QScrollArea*>();
    Rig::settle();
    scroll->verticalScrollBar()->setValue(scroll->verticalScrollBar()->maximum());
    look.save("backdrop-lower", *window);
    for (const char* const section : {"Looks", "Gradients", "Pictures", "Colours"})
        click(*window, section);
    click(*window, "No Backdrop");
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
    click(*window, "Find Text");
    look.save("find", *window);
    window->findChild<FindBar*>()->findChild<QLineEdit*>()->setText("brushes");
    window->findChild<FindBar*>()->go(2);
    look.save("find-found", *window);
    click(*window, "Redact All");
    look.save("find-redacted", *window);
    rig.ports = {};
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc < 2)
        return 2;
    Motion::shared().setReduced(true);
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QFont font = QApplication::font();
    font.setPixelSize(13);
    QApplication::setFont(font);
    QDir().mkpath(argv[1]);
    for (const ColorScheme scheme : {ColorScheme{}, {true, false}, {false, true}, {true, true}}) {
        QApplication::setPalette(Theme::of(scheme).palette());
        const Look look{argv[1], scheme};
        Rig rig(argv[1]);
        tools(look, rig);
        backdrops(look, rig);
        crops(look, rig);
        finds(look, rig);
    }
    return 0;
}
