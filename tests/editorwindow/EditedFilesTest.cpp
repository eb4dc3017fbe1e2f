#include "editorwindow/EditorWindows.h"
#include "history/HistoryEdits.h"
#include "ports/CaptureDelivery.h"
#include "ports/Toasts.h"
#include "tests/history/HistoryFixture.h"
#include "tests/support/FakeDesktop.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

namespace Kovrel {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// Files in editors, with the history as it is on disk.
struct EditedFilesTest : Testing::HistoryFixture {
    EditedFilesTest()
    {
        run = started();
        QImage paper(200, 100, QImage::Format_RGB32);
        paper.fill(Qt::white);
        paper.save(path);
        ports.toasts.offer(toasts);
        ports.delivery.offer(delivery);
        begin();
    }

    ~EditedFilesTest() override { end(); }

    void begin()
    {
        edits = std::make_unique<HistoryEdits>(loop, workers, store());
        ports.edits.offer(*edits);
        windows = std::make_unique<EditorWindows>(services);
    }

    // As a crash does: nobody is asked and nothing is kept.
    void end()
    {
        windows.reset();
        settle();
        edits.reset();
    }

    EditorWindow* open()
    {
        windows->openFiles({path});
        settle();
        return opened().empty() ? nullptr : opened().front();
    }

    static std::vector<EditorWindow*> opened()
    {
        std::vector<EditorWindow*> all;
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (auto* const window = qobject_cast<EditorWindow*>(widget); window && window->isVisible())
                all.push_back(window);
        return all;
    }

    static void addMark(EditorWindow& window)
    {
        EditorDocument document = window.session().document();
        const double x = 20.0 * double(document.marks.size());
        document.marks.push_back({.kind = Annotation::Kind::blackout, .points = {{x, 0}, {x + 10, 50}}});
        window.session().change(document);
    }

    static size_t marksOf(EditorWindow& window) { return window.session().document().marks.size(); }

    void waitForNote()
    {
        loop.advance(EditorKeeping::notingInterval);
        settle();
    }

    void save(EditorWindow& window)
    {
        window.keeping().save({}, [](const SaveOutcome&) {});
        settle();
    }

    // What the question at the end says; nothing where there is none.
    QString closeAndAnswer(EditorWindow& window, QMessageBox::StandardButton answer)
    {
        window.close();
        auto* const box = window.findChild<QMessageBox*>();
        const QString text = box ? box->informativeText() : QString();
        if (box)
            box->button(answer)->click();
        settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return text;
    }

    struct : Toasts {
        void present(ToastContent content, std::optional<quint32>, bool) override
        {
            subtitles << content.subtitle.value_or(QString());
        }

        void update(ToastContent, bool) override {}

        void showSaved(const QString&, std::optional<quint32>) override { subtitles << "saved"; }

        void armCountdown(std::optional<double>) override {}

        void dismiss(bool) override {}

        bool setHiddenForCapture(bool) override { return false; }

        QStringList subtitles;
    } toasts;

    struct : CaptureDelivery {
        std::shared_ptr<CaptureSave> save(CaptureResult result, std::optional<QString> target,
                                          std::shared_ptr<EncodedPng>) override
        {
            auto outcome = std::make_shared<CaptureSave>();
            result.image.save(*target);
            outcome->finish(*target);
            return outcome;
        }

        void copy(CaptureResult, std::shared_ptr<EncodedPng>) override {}

        void copyAsFile(const QString&, std::shared_ptr<EncodedPng>) override {}

        void copyText(const QString&) override {}

        void reveal(const QString&) override {}

        void openLink(const QUrl&) override {}
    } delivery;

    Testing::TempFolder pictures;
    const QString path = pictures / "paper.png";
    Ports ports;
    Preferences preferences{defaults};
    Testing::FakeDesktop desktop{loop};
    EditorServices services{
        loop, workers, preferences, desktop.filePanel(), desktop.clipboard(), ports, pictures / "temporary"};
    std::unique_ptr<HistoryEdits> edits;
    std::unique_ptr<EditorWindows> windows;
};

} // namespace

TEST_F(EditedFilesTest, WhatWasMadeOfAFileOutlivesACrash)
{
    EditorWindow* window = open();
    ASSERT_TRUE(window);
    waitForNote();
    EXPECT_THAT(store().entries(), IsEmpty()) << "looking at a picture records nothing";
    addMark(*window);
    waitForNote();
    ASSERT_THAT(store().entries(), SizeIs(1));
    EXPECT_EQ(store().entries().front().savedPath, path);
    EXPECT_EQ(QImage(path).pixelColor(5, 75), Qt::white) << "only its user writes the file";
    end();
    begin();
    window = open();
    ASSERT_TRUE(window);
    EXPECT_EQ(marksOf(*window), 1);
    EXPECT_EQ(window->session().capture().image.pixelColor(5, 75), Qt::white);
}

TEST_F(EditedFilesTest, MarksInASavedFileCanBeChangedLater)
{
    EditorWindow* window = open();
    ASSERT_TRUE(window);
    addMark(*window);
    save(*window);
    EXPECT_EQ(QImage(path).pixelColor(5, 75), Qt::black);
    EXPECT_EQ(closeAndAnswer(*window, QMessageBox::Cancel), QString());
    EXPECT_THAT(opened(), IsEmpty());
    window = open();
    ASSERT_TRUE(window);
    EXPECT_EQ(marksOf(*window), 1);
    EXPECT_FALSE(window->keeping().isChanged());
    window->session().change({});
    save(*window);
    EXPECT_EQ(QImage(path).pixelColor(5, 75), Qt::white);
    EXPECT_EQ(closeAndAnswer(*window, QMessageBox::Cancel), QString());
    EXPECT_THAT(store().entries(), SizeIs(1));
}

TEST_F(EditedFilesTest, WhatIsDiscardedIsAsItWasSaved)
{
    for (const size_t saved : {0, 1}) {
        EditorWindow* window = open();
        ASSERT_TRUE(window);
        for (size_t mark = 0; mark < saved; ++mark) {
            addMark(*window);
            save(*window);
        }
        addMark(*window);
        waitForNote();
        EXPECT_THAT(closeAndAnswer(*window, QMessageBox::Discard).toStdString(),
                    testing::HasSubstr("still be changed"));
        EXPECT_THAT(opened(), IsEmpty());
        EXPECT_THAT(store().entries(), SizeIs(saved));
        window = open();
        ASSERT_TRUE(window);
        EXPECT_EQ(marksOf(*window), saved);
        closeAndAnswer(*window, QMessageBox::Cancel);
    }
}

TEST_F(EditedFilesTest, AFileThatAnotherProgramHasWrittenIsShownAsItIs)
{
    EditorWindow* window = open();
    ASSERT_TRUE(window);
    addMark(*window);
    save(*window);
    closeAndAnswer(*window, QMessageBox::Cancel);
    for (const auto& [color, marks] : {std::pair(Qt::black, 1), std::pair(Qt::red, 0)}) {
        QImage picture(path);
        picture.setPixelColor(5, 75, color);
        picture.save(path);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.setFileTime(QDateTime::currentDateTime().addSecs(60), QFile::FileModificationTime);
        file.close();
        window = open();
        ASSERT_TRUE(window);
        EXPECT_EQ(marksOf(*window), marks);
        closeAndAnswer(*window, QMessageBox::Cancel);
    }
}

TEST_F(EditedFilesTest, WithoutAHistorySavingSaysThatMarksAreInThePicture)
{
    preferences.set(Settings::historyEnabled, false);
    EditorWindow* window = open();
    ASSERT_TRUE(window);
    addMark(*window);
    waitForNote();
    const QString said = closeAndAnswer(*window, QMessageBox::Save);
    EXPECT_TRUE(said.contains("can't be changed later")) << qUtf8Printable(said);
    EXPECT_THAT(toasts.subtitles, ElementsAre(said));
    EXPECT_THAT(opened(), IsEmpty());
    EXPECT_THAT(store().entries(), IsEmpty());
    EXPECT_EQ(QImage(path).pixelColor(5, 75), Qt::black);
}

TEST_F(EditedFilesTest, AFileHasOneEditor)
{
    windows->openFiles({path, path});
    windows->openFiles({path});
    settle();
    EXPECT_THAT(opened(), SizeIs(1));
    windows->openFiles({path});
    settle();
    EXPECT_THAT(opened(), SizeIs(1));
}

} // namespace Kovrel
