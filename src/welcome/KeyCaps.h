#pragma once

#include <QStringList>
#include <QWidget>

namespace Kovrel {

// A key combination as the keys that are pressed for it.
class KeyCaps : public QWidget {
    Q_OBJECT

public:
    KeyCaps();

    // As people write it, like "Super+Shift+4"; empty: no keys.
    void setKeys(const QString& combination);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void takeLook();

    QStringList m_keys;
};

} // namespace Kovrel
