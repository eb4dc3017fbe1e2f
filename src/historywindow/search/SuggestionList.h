#pragma once

#include "historywindow/search/SearchSuggestion.h"

#include <QWidget>

#include <vector>

namespace Kovrel {

// What is offered below the search field, which keeps the keyboard. It lies over the window's content. Main thread.
class SuggestionList : public QWidget {
    Q_OBJECT

public:
    explicit SuggestionList(QWidget* window);

    // None: it goes.
    void show(std::vector<SearchSuggestion> rows, const QRect& below);

Q_SIGNALS:
    void chosen(int row);
    void hovered(int row);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    struct Place {
        QRect row;
        QRect header; // null where a row begins no section
    };

    std::vector<Place> places() const;
    int rowAt(QPoint point) const;
    void paintRow(QPainter& painter, const QRect& place, const SearchSuggestion& row) const;

    std::vector<SearchSuggestion> m_rows;
};

} // namespace Kovrel
