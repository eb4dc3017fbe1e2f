#include "cards/panels/CardChrome.h"

#include "cards/panels/CardButton.h"
#include "ui/MenuPlace.h"
#include "ui/tokens/CardTokens.h"
#include "ui/tokens/ReadingSide.h"

#include <QCoreApplication>
#include <QPainter>

#include <algorithm>

namespace Kovrel {

namespace {

struct Face {
    CardQuickAction action;
    const char* symbol;
    const char* title;
};

constexpr Face faces[] = {
    {CardQuickAction::copy, "doc.on.doc", QT_TRANSLATE_NOOP("CardChrome", "Copy")},
    {CardQuickAction::save, "square.and.arrow.down", QT_TRANSLATE_NOOP("CardChrome", "Save")},
    {CardQuickAction::edit, "pencil", QT_TRANSLATE_NOOP("CardChrome", "Edit")},
    {CardQuickAction::pin, "pin", QT_TRANSLATE_NOOP("CardChrome", "Pin to Screen")},
    {CardQuickAction::close, "xmark", QT_TRANSLATE_NOOP("CardChrome", "Close")},
};

const Face& faceOf(CardQuickAction action)
{
    return *std::ranges::find(faces, action, &Face::action);
}

QString translated(const char* text)
{
    return QCoreApplication::translate("CardChrome", text);
}

} // namespace

CardChrome::CardChrome(const Offer& offer, QWidget* parent) : QWidget(parent)
{
    m_close = addButton(CardQuickAction::close, CardTokens::smallButton);
    m_freeze = new CardButton("snowflake", {}, CardTokens::smallButton, this);
    connect(m_freeze, &CardButton::clicked, this, &CardChrome::freezeWanted);
    for (const CardQuickAction action : offer.actions) {
        m_bar.push_back(addButton(action, CardTokens::button));
        if (action == CardQuickAction::save)
            m_save = m_bar.back();
    }
    if (offer.hasMenu)
        addMenuButton();
}

CardButton* CardChrome::addButton(CardQuickAction action, double size)
{
    const Face& face = faceOf(action);
    auto* button = new CardButton(face.symbol, translated(face.title), size, this);
    connect(button, &CardButton::clicked, this, [this, action] { Q_EMIT performed(action); });
    return button;
}

void CardChrome::addMenuButton()
{
    auto* button =
        new CardButton("ellipsis", QCoreApplication::translate("CardChrome", "More"), CardTokens::button, this);
    connect(button, &CardButton::clicked, this, [this, button] { Q_EMIT menuWanted(MenuPlace::below(*button)); });
    m_bar.push_back(button);
}

void CardChrome::setLook(const CardLook& look)
{
    m_freeze->setLook("snowflake", look.isFrozen ? tr("Let It Close by Itself") : tr("Keep Until Closed"),
                      look.isFrozen ? CardTokens::done : CardTokens::onGlass);
    if (!m_save)
        return;
    if (look.isSaved)
        m_save->setLook("checkmark", tr("Saved"), CardTokens::done);
    else
        m_save->setLook("square.and.arrow.down", look.isSaving ? tr("Saving\u2026") : tr("Save"), CardTokens::onGlass);
    m_save->setEnabled(!look.isSaving);
}

void CardChrome::setPlace(const QRect& place, double radius)
{
    setGeometry(place);
    m_radius = radius;
    arrange();
}

void CardChrome::arrange()
{
    const int inset = int(CardTokens::inset);
    put(m_freeze, {inset, inset});
    put(m_close, {width() - inset - m_close->width(), inset});
    const double step = CardTokens::button + CardTokens::buttonGap;
    double x = (width() - step * double(m_bar.size()) + CardTokens::buttonGap) / 2;
    for (CardButton* button : m_bar) {
        put(button, {int(x), height() - inset - button->height()});
        x += step;
    }
}

void CardChrome::put(CardButton* button, QPoint place)
{
    button->move(ReadingSide::placed({place, button->size()}, rect()).topLeft().toPoint());
}

void CardChrome::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(CardTokens::scrim);
    painter.drawRoundedRect(rect(), m_radius, m_radius);
}

} // namespace Kovrel
