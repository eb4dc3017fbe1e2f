#pragma once

#include "editorwindow/backdrop/SwatchButton.h"

#include <optional>
#include <vector>

class QGridLayout;

namespace Kovrel {

class DisclosureButton;

// Swatches to choose from, in rows below a title: folded only the first row is seen. The arrow keys go from one to the
// next; with Alt, or dragged, one that may be moved changes its place. Main thread.
class SwatchSection : public QWidget {
    Q_OBJECT

public:
    struct Swatch {
        QString id;
        QString name;
        SwatchButton::Picture picture; // none: the symbol stands in its place
        QString symbol = {};
        bool isMovable = true;
        bool isChosen = false;
    };

    explicit SwatchSection(const QString& title);

    void setUnfolded(bool isUnfolded);
    // The movable ones stand together.
    void setSwatches(const std::vector<Swatch>& swatches);

    bool eventFilter(QObject* object, QEvent* event) override;

Q_SIGNALS:
    void unfolded(bool isUnfolded);
    void chosen(const QString& id);
    // So that it is the `place`th of those that may be moved.
    void moved(const QString& id, int place);
    // Without an id: of the section.
    void menuWanted(const QString& id, QPoint globalPosition);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct Item {
        Swatch swatch;
        SwatchButton* button;
    };

    SwatchButton* buttonFor(const Swatch& swatch);
    void arrange();
    Item* itemOf(QObject* button);
    void chooseStop();
    void drag(const Item& item, QPoint at);
    bool press(Item& item, int key, bool isAlt);
    void move(const Item& item, int index);

    DisclosureButton* m_title;
    QGridLayout* m_grid;
    std::vector<Item> m_items; // as they stand
    std::optional<QPoint> m_pressedAt;
    bool m_isDragging = false;
};

} // namespace Kovrel
