#pragma once

#include <QAbstractButton>

namespace Kovrel {

// A round button of dark glass on a card's picture. It never takes the focus. Main thread.
class CardButton : public QAbstractButton {
    Q_OBJECT

public:
    // `title`: what it does, for those who wait over it or can't see it.
    CardButton(const QString& symbol, const QString& title, double size, QWidget* parent);

    // What it shows instead, as once the thing is done.
    void setLook(const QString& symbol, const QString& title, const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_symbol;
    QColor m_color;
};

} // namespace Kovrel
