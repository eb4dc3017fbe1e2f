#include "historywindow/EmptyState.h"

#include "ui/Label.h"
#include "ui/PrimaryButton.h"
#include "ui/Symbols.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QBoxLayout>
#include <QPainter>

namespace Kovrel {

namespace {

constexpr int symbolSide = 40;
constexpr int adviceWidth = 340;

} // namespace

class EmptyState::SymbolView : public QWidget {
public:
    SymbolView() { setFixedSize(symbolSide + 4, symbolSide + 4); }

    void show(const QString& name)
    {
        m_name = name;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        Symbols::paint(painter, m_name, QRectF(2, 2, symbolSide, symbolSide), Theme::current().disabledText);
    }

private:
    QString m_name;
};

EmptyState::EmptyState()
{
    m_symbol = new SymbolView;
    m_title = new Label(TextStyle::headline);
    m_advice = new Label(TextStyle::body, Label::Role::secondary);
    m_button = new PrimaryButton({});
    for (Label* label : {m_title, m_advice}) {
        label->setAlignment(Qt::AlignCenter);
        label->setMinimumWidth(adviceWidth);
    }
    connect(m_button, &QPushButton::clicked, this, [this] {
        if (m_action)
            m_action();
    });
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Spacing::small);
    layout->addStretch(2);
    for (QWidget* part : std::initializer_list<QWidget*>{m_symbol, m_title, m_advice})
        layout->addWidget(part, 0, Qt::AlignHCenter);
    layout->addSpacing(Spacing::small);
    layout->addWidget(m_button, 0, Qt::AlignHCenter);
    layout->addStretch(3);
}

void EmptyState::set(Content content)
{
    m_symbol->show(content.symbol);
    m_title->setText(content.title);
    m_advice->setText(content.advice);
    m_button->setText(content.button);
    m_button->setVisible(!content.button.isEmpty());
    m_action = std::move(content.action);
}

} // namespace Kovrel
