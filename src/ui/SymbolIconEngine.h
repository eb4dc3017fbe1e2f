#pragma once

#include <QIconEngine>

namespace Kovrel {

// A symbol as the icon of a button or of a menu's entry: drawn at the size that is asked for, in the colour of texts.
class SymbolIconEngine : public QIconEngine {
public:
    explicit SymbolIconEngine(QString name) : m_name(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;

    QIconEngine* clone() const override { return new SymbolIconEngine(*this); }

private:
    QString m_name;
};

} // namespace Kovrel
