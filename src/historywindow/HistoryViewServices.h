#pragma once

#include "history/CaptureHistoryStore.h"
#include "history/search/HistoryTextIndex.h"
#include "historywindow/HistoryActions.h"
#include "historywindow/grid/HistoryGrid.h"
#include "historywindow/grid/HistoryModel.h"

namespace Kovrel {

// What windows that show the history are built on. All of it outlives them.
struct HistoryViewServices {
    MainLoop& loop;
    Workers& workers;
    Preferences& preferences;
    CaptureHistoryStore& store;
    HistoryTextIndex& index;
    HistoryActions& actions;
    ThumbnailFeed::Read readThumbnail;
    ThumbnailFeed::Read readPicture; // as the capture looks, as large as the bounds allow
    HistoryModel::DragFile dragFile; // a file that was prepared; empty where there is none yet
    std::function<void(const QList<QUuid>&)> prepareDragFiles;
    std::function<QString()> captureKeys; // of "Capture Area", as people read them; empty: none
    std::function<void()> openSettings;   // those of the history
};

} // namespace Kovrel
