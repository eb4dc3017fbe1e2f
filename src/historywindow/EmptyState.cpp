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
constexpr int columnWidth = 360;

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
    for (Label* label : {m_title, m_advice})
        label->setAlignment(Qt::AlignCenter);
    connect(m_button, &QPushButton::clicked, this, [this] {
        if (m_action)
            m_action();
    });
    // Texts that wrap get the height that they need only in a column of a known width.
    auto* column = new QWidget;
    column->setFixedWidth(int(columnWidth * Typography::scale()));
    auto* parts = new QVBoxLayout(column);
    parts->setSpacing(Spacing::small);
    parts->addStretch(2);
    parts->addWidget(m_symbol, 0, Qt::AlignHCenter);
    parts->addWidget(m_title);
    parts->addWidget(m_advice);
    parts->addSpacing(Spacing::small);
    parts->addWidget(m_button, 0, Qt::AlignHCenter);
    parts->addStretch(3);
    auto* layout = new QHBoxLayout(this);
    layout->addStretch();
    layout->addWidget(column);
    layout->addStretch();
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
