#pragma once

#include "historywindow/PreviewPicture.h"
#include "historywindow/grid/ThumbnailFeed.h"
#include "platform/Lifeline.h"

#include <QString>

#include <utility>
#include <vector>

class QGridLayout;
class QTimer;

namespace Kovrel {

class Label;

// The capture that was picked: its picture, of which the text can be selected, and a page of facts. Main thread.
class HistoryPreview : public QWidget {
    Q_OBJECT

public:
    struct Facts {
        QString title;
        QSize shape;                                   // of the picture, in pixels; empty where it is not known
        std::vector<std::pair<QString, QString>> rows; // what it is, and its value; without a value none is shown
    };

    struct Services {
        MainLoop& loop;
        Workers& workers;
        Preferences& preferences;
        ThumbnailFeed::Read read;
        std::function<void(QUuid, Reply<OCROutcome>)> readText; // for nobody who waits
        LiveTextLayer::Doors doors;
    };

    explicit HistoryPreview(Services services);

    // A null id: no capture. Marks are parts of the picture, each axis from 0 to 1, origin bottom-left.
    void show(QUuid id, const Facts& facts, std::vector<Rect> marks);

    // Its file is another one now.
    void forget(QUuid id);

private:
    void wantPicture();
    void wantText();
    void setFacts(const Facts& facts);
    void setRow(int row, const QString& name, const QString& value);

    QUuid m_id;
    PreviewPicture* m_picture;
    Label* m_title;
    QGridLayout* m_rows;
    std::function<void(QUuid, Reply<OCROutcome>)> m_readText;
    QTimer* m_rest; // once it ends, text is asked for
    ThumbnailFeed m_pictures;
    Lifeline m_lifeline;
};

} // namespace Kovrel
