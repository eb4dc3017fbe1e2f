#pragma once

#include "editorwindow/crop/CropReadings.h"

#include <QWidget>

class QLineEdit;

namespace Kovrel {

class RowButton;
class SymbolButton;

// The output sizes of a crop with what each takes as a file: all of it, three reductions, and a row where a width or a
// height is typed. What is chosen lands in the document at once. Main thread.
class CropSizeMenu : public QWidget {
    Q_OBJECT

public:
    // Both outlive it.
    CropSizeMenu(QWidget* parent, EditorSession& session, const CropReadings& readings);

    // Shows what is known now.
    void refresh();
    // With its lower left corner there, or its upper left one where there is no room above.
    void popUp(QPoint globalPosition);

    // As a button shows it: the size in pixels and what it takes.
    static QString summary(const CropOutputSize& choice, const CropReadings& readings);

Q_SIGNALS:
    void closed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* makeTypedRow();
    QLineEdit* makeField(const QString& name, void (CropSizeMenu::*typed)());
    void choose(const CropOutputSize& choice);
    void typeWidth();
    void typeHeight();
    void lock(bool isLocked);

    const CropOutputSize& choice() const { return m_session.document().composition.outputSize; }

    EditorSession& m_session;
    const CropReadings& m_readings;
    std::vector<RowButton*> m_rows; // as the fractions
    QLineEdit* m_width;
    QLineEdit* m_height;
    SymbolButton* m_lock;
};

} // namespace Kovrel
