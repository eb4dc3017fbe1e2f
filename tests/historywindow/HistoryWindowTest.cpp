#include "historywindow/HistoryWindow.h"

#include "historywindow/UndoBar.h"
#include "historywindow/grid/HistoryDelegate.h"
#include "historywindow/lists/HistorySidebar.h"
#include "historywindow/search/HistorySearchField.h"
#include "preferences/Settings.h"
#include "tests/history/HistoryFixture.h"
#include "tests/support/FakeDesktop.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>

namespace Kovrel {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// The window over a history of five captures, the third of which is filed.
struct HistoryWindowTest : Testing::HistoryFixture {
    Testing::FakeDesktop desktop{loop};
    Ports ports;
    HistoryTextIndex index{loop, workers};
    std::unique_ptr<HistoryActions> actions;
    std::unique_ptr<HistoryWindow> window;
    QUuid list;
    std::vector<int> thumbnailsRead;

    void SetUp() override
    {
        run = started();
        recordUpTo(5);
        list = store().createList("Receipts", "#34C759");
        store().moveToList({id(3)}, list);
        index.set({line("the total is 42")}, id(2));
        actions = std::make_unique<HistoryActions>(HistoryActions::Services{
            loop, workers, run->preferences, store(), ports, desktop.filePanel(), desktop.fileManager()});
        window = std::make_unique<HistoryWindow>(HistoryViewServices{
            .loop = loop,
            .workers = workers,
            .preferences = run->preferences,
            .store = store(),
            .index = index,
            .actions = *actions,
            .readThumbnail =
                [this](QUuid id, QSize) {
                    thumbnailsRead.push_back(int(id.data1));
                    return QImage();
                },
            .readPicture = [](QUuid, QSize) { return QImage(); },
            .dragFile = [](QUuid id) -> QString { return "/drag/" + id.toString(QUuid::WithoutBraces) + ".png"; },
            .prepareDragFiles = [](const auto&) {},
            .captureKeys = [] { return QString("Ctrl+Alt+4"); },
        });
        window->present();
        settle();
    }

    static OCRLine line(const char* text) { return {.text = text, .confidence = 1, .boundingBox = {0, 0, 1, 1}}; }

    HistoryModel& model() const { return *static_cast<HistoryModel*>(window->grid().model()); }

    std::vector<int> shown()
    {
        settle();
        std::vector<int> all;
        for (int row = 0; row < model().rowCount(); ++row)
            all.push_back(int(model().entry(row).id.data1));
        return all;
    }

    std::vector<int> selected() const
    {
        std::vector<int> all;
        for (const QUuid& id : window->grid().selectedIds())
            all.push_back(int(id.data1));
        return all;
    }

    void select(std::initializer_list<int> numbers)
    {
        QItemSelection rows;
        for (const int number : numbers)
            rows.select(model().index(model().row(id(number))), model().index(model().row(id(number))));
        window->grid().selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    }

    HistorySearchField& search() const { return *window->findChild<HistorySearchField*>(); }

    HistorySidebar& sidebar() const { return *window->findChild<HistorySidebar*>(); }

    void press(Qt::Key key) const
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(search().findChild<QLineEdit*>(), &event);
    }

    void trigger(const QKeySequence& keys) const
    {
        for (QAction* action : window->actions())
            if (action->shortcut() == keys)
                action->trigger();
    }
};

// A grid that can be moved to a display of another scale.
struct MovedGrid : HistoryGrid {
    using HistoryGrid::HistoryGrid;

    void moveTo(int newScale)
    {
        scale = newScale;
        QEvent event(QEvent::ScreenChangeInternal);
        QApplication::sendEvent(this, &event);
    }

    int metric(PaintDeviceMetric which) const override
    {
        return which == PdmDevicePixelRatioScaled ? int(scale * devicePixelRatioFScale()) : HistoryGrid::metric(which);
    }

    int scale = 1;
};

} // namespace

TEST_F(HistoryWindowTest, WordsAndChipsNarrowWhatIsShown)
{
    EXPECT_THAT(shown(), ElementsAre(5, 4, 3, 2, 1));
    search().setText("total");
    EXPECT_THAT(shown(), ElementsAre(2));
    search().setText("rece");
    settle();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_THAT(shown(), ElementsAre(3)) << "the list has become a chip";
    EXPECT_TRUE(search().text().isEmpty());
    press(Qt::Key_Backspace);
    EXPECT_THAT(shown(), ElementsAre(5, 4, 3, 2, 1));
    search().setText("nowhere");
    EXPECT_THAT(shown(), IsEmpty());
    press(Qt::Key_Escape);
    EXPECT_THAT(shown(), ElementsAre(5, 4, 3, 2, 1));
}

TEST_F(HistoryWindowTest, TheSelectionStaysWithItsCaptures)
{
    select({4, 2});
    record(6);
    EXPECT_THAT(shown(), ElementsAre(6, 5, 4, 3, 2, 1));
    EXPECT_THAT(selected(), ElementsAre(4, 2));
    search().setText("total");
    shown();
    EXPECT_THAT(selected(), ElementsAre(2));
}

TEST_F(HistoryWindowTest, DeletingCanBeUndoneAndKeepsWhatIsFiled)
{
    window->show();
    select({4, 3});
    trigger(QKeySequence::Delete);
    EXPECT_THAT(shown(), ElementsAre(5, 2, 1));
    EXPECT_TRUE(window->findChild<UndoBar*>()->isVisible());
    sidebar().select(list);
    EXPECT_THAT(shown(), ElementsAre(3)) << "what is filed only leaves the timeline";
    sidebar().select({});
    trigger(QKeySequence::Undo);
    EXPECT_THAT(shown(), ElementsAre(5, 4, 3, 2, 1));
    EXPECT_FALSE(window->findChild<UndoBar*>()->isVisible());
}

TEST_F(HistoryWindowTest, DeleteMeansTheListWhileTheListsHaveTheFocus)
{
    select({4});
    const auto pressDelete = [this] {
        auto* lists = sidebar().findChild<QListView*>();
        QKeyEvent asked(QEvent::ShortcutOverride, Qt::Key_Delete, Qt::NoModifier);
        asked.ignore();
        QApplication::sendEvent(lists, &asked);
        EXPECT_TRUE(asked.isAccepted()) << "else the window's shortcut would delete the selected captures";
        QKeyEvent pressed(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
        QApplication::sendEvent(lists, &pressed);
        return window->findChild<QMessageBox*>();
    };
    EXPECT_FALSE(pressDelete()) << "the timeline can't be deleted";
    sidebar().select(list);
    QMessageBox* box = pressDelete();
    ASSERT_TRUE(box);
    for (QAbstractButton* button : box->buttons())
        if (box->buttonRole(button) == QMessageBox::DestructiveRole)
            button->click();
    EXPECT_EQ(store().list(list), nullptr);
    EXPECT_THAT(shown(), ElementsAre(5, 4, 3, 2, 1));
}

TEST_F(HistoryWindowTest, CapturesAreDraggedIntoListsAndOutAsFiles)
{
    select({5, 1});
    const std::unique_ptr<QMimeData> data(model().mimeData(window->grid().selectionModel()->selectedIndexes()));
    EXPECT_EQ(data->urls().size(), 2);
    ListsModel& lists = sidebar().model();
    EXPECT_TRUE(lists.dropMimeData(data.get(), Qt::CopyAction, -1, -1, lists.index(lists.row(list))));
    EXPECT_FALSE(lists.canDropMimeData(data.get(), Qt::CopyAction, 1, 0, {})) << "not between lists";
    sidebar().select(list);
    EXPECT_THAT(shown(), testing::UnorderedElementsAre(1, 3, 5));
}

TEST_F(HistoryWindowTest, ListsAreDraggedToTheirPlace)
{
    store().createList("Second", "#000000");
    const QUuid third = store().createList("Third", "#000000");
    settle();
    ListsModel& lists = sidebar().model();
    const auto names = [this] {
        QStringList all;
        for (const HistoryList& each : store().lists())
            all << each.name;
        return all.join(' ');
    };
    const auto drop = [&](QUuid dragged, int beforeRow) {
        const std::unique_ptr<QMimeData> data(lists.mimeData({lists.index(lists.row(dragged))}));
        lists.dropMimeData(data.get(), Qt::MoveAction, beforeRow, 0, {});
        settle();
    };
    drop(third, 1);
    EXPECT_EQ(names(), "Third Receipts Second");
    drop(third, 3);
    EXPECT_EQ(names(), "Receipts Third Second");
    drop(list, 4);
    EXPECT_EQ(names(), "Third Second Receipts");
}

TEST_F(HistoryWindowTest, ThumbnailsHaveThePixelsOfTheDisplayThatShowsThem)
{
    std::vector<QSize> read;
    MovedGrid grid(HistoryGrid::Shape::row, model(), loop, workers, [&read](QUuid, QSize bounds) {
        read.push_back(bounds);
        return QImage();
    });
    for (const int scale : {1, 2}) {
        grid.moveTo(scale);
        read.clear();
        settle();
        EXPECT_THAT(read, testing::IsSupersetOf({HistoryDelegate::pictureSize() * scale}));
    }
}

TEST_F(HistoryWindowTest, TitlesAreGivenInPlaceAndTakenAway)
{
    const auto row = [this] { return model().index(model().row(id(2))); };
    model().setData(row(), "  My bill ", Qt::EditRole);
    settle();
    EXPECT_EQ(row().data().toString(), "My bill");
    model().setData(row(), "", Qt::EditRole);
    settle();
    EXPECT_EQ(store().entry(id(2))->title, std::nullopt);
}

TEST_F(HistoryWindowTest, WhatGoesForGoodIsAskedFor)
{
    struct Case {
        void (HistorySidebar::*wanted)();
        const char* question;
        std::vector<int> left;
    };

    store().setSavedPath(id(1), "/somewhere/one.png");
    for (const Case& c :
         {Case{&HistorySidebar::turningOffWanted, "Turn off history and delete 3 unsaved captures?", {3, 1}},
          Case{&HistorySidebar::clearingWanted, "Delete all captures that are in no list?", {3}}})
        for (const bool isMeant : {false, true}) {
            const std::vector<int> before = shown();
            Q_EMIT(sidebar().*c.wanted)();
            auto* box = window->findChild<QMessageBox*>();
            ASSERT_TRUE(box);
            EXPECT_EQ(box->text(), c.question);
            for (QAbstractButton* button : box->buttons())
                if ((box->buttonRole(button) == QMessageBox::DestructiveRole) == isMeant)
                    button->click();
            delete box;
            EXPECT_EQ(shown(), isMeant ? c.left : before);
        }
}

TEST_F(HistoryWindowTest, ACaptureThatWasEditedIsShownAsItLooksNow)
{
    QApplication::processEvents(); // the grid is laid out
    settle();
    EXPECT_EQ(thumbnailsRead.size(), 5U);
    thumbnailsRead.clear();
    store().updateImage({.id = id(2), .flattened = Testing::testPicture({50, 40}, Testing::Texture::blocks)});
    settle();
    EXPECT_THAT(thumbnailsRead, ElementsAre(2));
}

} // namespace Kovrel
