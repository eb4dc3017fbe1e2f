#include "editorwindow/backdrop/SwatchSection.h"

#include "editorwindow/backdrop/DisclosureButton.h"
#include "editorwindow/tools/TabStop.h"
#include "ui/tokens/Metrics.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QGridLayout>
#include <QKeyEvent>

#include <algorithm>
#include <ranges>

namespace Kovrel {

namespace {

constexpr int columns = 4;

} // namespace

SwatchSection::SwatchSection(const QString& title) : m_title(new DisclosureButton(title)), m_grid(new QGridLayout)
{
    setAccessibleName(title);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing::tight);
    layout->addWidget(m_title);
    layout->addLayout(m_grid);
    m_grid->setSpacing(Spacing::tight + Spacing::tight);
    m_grid->setColumnStretch(columns, 1);
    connect(m_title, &QPushButton::clicked, this, [this](bool isUnfolded) {
        arrange();
        Q_EMIT unfolded(isUnfolded);
    });
}

void SwatchSection::setUnfolded(bool isUnfolded)
{
    m_title->setChecked(isUnfolded);
    arrange();
}

// Buttons stay who they are, so that one can be dragged and keep the keyboard while it changes its place.
void SwatchSection::setSwatches(const std::vector<Swatch>& swatches)
{
    std::vector<Item> items;
    items.reserve(swatches.size());
    for (const Swatch& swatch : swatches)
        items.push_back({swatch, buttonFor(swatch)});
    const bool isSame = std::ranges::equal(items, m_items, {}, &Item::button, &Item::button);
    for (const Item& item : std::exchange(m_items, std::move(items)))
        if (!itemOf(item.button))
            item.button->deleteLater();
    isSame ? chooseStop() : arrange();
}

SwatchButton* SwatchSection::buttonFor(const Swatch& swatch)
{
    const auto known = std::ranges::find(m_items, swatch.id, [](const Item& item) { return item.swatch.id; });
    SwatchButton* button = known == m_items.end() ? nullptr : known->button;
    if (!button) {
        button = swatch.picture ? new SwatchButton(swatch.name, swatch.picture)
                                : new SwatchButton(swatch.name, swatch.symbol);
        button->installEventFilter(this);
        connect(button, &QPushButton::clicked, this, [this, button, id = swatch.id] {
            button->setChecked(itemOf(button)->swatch.isChosen);
            Q_EMIT chosen(id);
        });
    }
    button->setPicture(swatch.picture);
    button->setChecked(swatch.isChosen);
    return button;
}

void SwatchSection::arrange()
{
    for (size_t index = 0; index < m_items.size(); ++index) {
        SwatchButton* const button = m_items[index].button;
        m_grid->addWidget(button, int(index) / columns, int(index) % columns);
        button->setVisible(m_title->isChecked() || int(index) < columns);
    }
    QWidget* before = m_title;
    for (const Item& item : m_items) {
        item.button->setFocusPolicy(Qt::TabFocus); // nothing else can be put in order
        setTabOrder(std::exchange(before, item.button), item.button);
    }
    chooseStop();
}

// One of them is a stop of the Tab key: the one that has the keyboard, else what is chosen, else the first.
void SwatchSection::chooseStop()
{
    if (m_items.empty())
        return;
    QWidget* stop = m_items.front().button;
    for (const auto& [swatch, button] : m_items)
        if (button->hasFocus() || (swatch.isChosen && !button->isHidden() && !stop->hasFocus()))
            stop = button;
    TabStop::setOnly(stop, m_items | std::views::transform(&Item::button));
}

SwatchSection::Item* SwatchSection::itemOf(QObject* button)
{
    const auto found = std::ranges::find(m_items, button, &Item::button);
    return found == m_items.end() ? nullptr : &*found;
}

// --- Pointer and keys

bool SwatchSection::eventFilter(QObject* object, QEvent* event)
{
    Item* const item = itemOf(object);
    if (!item)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_pressedAt = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
        return false;
    case QEvent::MouseMove:
        drag(*item, static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
        return m_isDragging;
    case QEvent::MouseButtonRelease:
        m_pressedAt.reset();
        item->button->setDown(item->button->isDown() && !m_isDragging);
        return std::exchange(m_isDragging, false);
    case QEvent::KeyPress: {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        return press(*item, key.key(), key.modifiers().testFlag(Qt::AltModifier));
    }
    case QEvent::ContextMenu:
        Q_EMIT menuWanted(item->swatch.id, static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    default:
        return false;
    }
}

void SwatchSection::drag(const Item& item, QPoint at)
{
    if (!m_pressedAt || !item.swatch.isMovable)
        return;
    m_isDragging |= (at - *m_pressedAt).manhattanLength() >= QApplication::startDragDistance();
    if (!m_isDragging)
        return;
    const auto under = std::ranges::find_if(m_items, [at](const Item& other) {
        return other.button->isVisible() && other.button->rect().contains(other.button->mapFromGlobal(at));
    });
    if (under != m_items.end() && under->button != item.button)
        move(item, int(under - m_items.begin()));
}

bool SwatchSection::press(Item& item, int key, bool isAlt)
{
    const int step = key == Qt::Key_Left    ? -1
                     : key == Qt::Key_Right ? 1
                     : key == Qt::Key_Up    ? -columns
                     : key == Qt::Key_Down  ? columns
                                            : 0;
    const int index = int(&item - m_items.data()) + step;
    if (step == 0 || index < 0 || index >= int(m_items.size()) || m_items[size_t(index)].button->isHidden())
        return step != 0;
    if (isAlt) {
        move(item, index);
        return true;
    }
    m_items[size_t(index)].button->setFocus(Qt::TabFocusReason);
    chooseStop();
    return true;
}

void SwatchSection::move(const Item& item, int index)
{
    const auto first = std::ranges::find_if(m_items, [](const Item& other) { return other.swatch.isMovable; });
    const QString id = item.swatch.id; // the items change meanwhile
    if (item.swatch.isMovable && m_items[size_t(index)].swatch.isMovable)
        Q_EMIT moved(id, index - int(first - m_items.begin()));
}

void SwatchSection::contextMenuEvent(QContextMenuEvent* event)
{
    Q_EMIT menuWanted({}, event->globalPos());
}

} // namespace Kovrel
