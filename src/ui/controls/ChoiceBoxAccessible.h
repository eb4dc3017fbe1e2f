#pragma once

#include <QAccessibleWidget>

namespace Kovrel {

class ChoiceBox;

// A choice as screen readers meet it: what is chosen, after what it is chosen for. The toolkit's own says only the
// former here.
class ChoiceBoxAccessible : public QAccessibleWidget {
public:
    explicit ChoiceBoxAccessible(ChoiceBox& box);

    // Screen readers meet this box so, and hear of other choices.
    static void serve(ChoiceBox& box);

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    ChoiceBox& m_box;
};

} // namespace Kovrel
