#pragma once

#include "ui/Button.h"

#include <QImage>

namespace Kovrel {

// A small picture of something to be chosen, or a symbol in its place. Main thread.
class SwatchButton : public Button {
    Q_OBJECT

public:
    // The picture at so many pixels; null while there is none.
    using Picture = std::function<QImage(QSize pixels)>;

    // `name`: for tool tips and screen readers. A click leaves the keyboard to whoever has it.
    SwatchButton(const QString& name, Picture picture);
    SwatchButton(const QString& name, const QString& symbol);

    void setPicture(Picture picture);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SwatchButton(const QString& name, Picture picture, const QString& symbol);

    Picture m_picture;
    QString m_symbol;
};

} // namespace Kovrel
