#include "welcome/HotkeysPage.h"

#include "hotkeys/HotkeySettings.h"
#include "ui/Label.h"
#include "ui/MenuTitle.h"
#include "ui/Notice.h"
#include "ui/controls/Card.h"
#include "ui/controls/PlainButton.h"
#include "ui/tokens/Metrics.h"
#include "welcome/KeyCaps.h"

#include <QGridLayout>

namespace Kovrel {

HotkeysPage::HotkeysPage(Services services)
    : m_services(std::move(services)), m_refused(new Notice), m_borrowed(new Notice)
{
    setTexts(tr("Capture from anywhere"), tr("These keys work in every program, also while a menu is open."));
    addBelow(makeRows());
    for (Notice* notice : {m_borrowed, m_refused}) {
        addBelow(notice);
        notice->hide();
    }
    auto* const change = new PlainButton(tr("Change Keys…"));
    connect(change, &QPushButton::clicked, this, [this] { m_services.changeKeys(); });
    addBelow(change);
    change->parentWidget()->layout()->setAlignment(change, Qt::AlignHCenter);
}

QWidget* HotkeysPage::makeRows()
{
    auto* const card = new Card;
    auto* const layout = new QGridLayout(card);
    layout->setContentsMargins(Spacing::medium, Spacing::small, Spacing::medium, Spacing::small);
    layout->setVerticalSpacing(2 * Spacing::tight);
    layout->setColumnStretch(0, 1);
    for (const MenuEntry& entry : CommandTable::menu()) {
        if (!entry.hotkey)
            continue;
        const int line = int(m_rows.size());
        const Row row{entry, new Label(TextStyle::control), new KeyCaps};
        row.title->setText(menuTitle(entry));
        layout->addWidget(row.title, line, 0);
        layout->addWidget(row.keys, line, 1, Qt::AlignRight);
        m_rows.push_back(row);
    }
    return card;
}

void HotkeysPage::refresh()
{
    for (const Row& row : m_rows) {
        const auto combo = HotkeySettings::combo(m_services.preferences, row.entry);
        const bool isShown = combo && m_services.isOffered(row.entry);
        row.title->setVisible(isShown);
        row.keys->setVisible(isShown);
        row.keys->setKeys(combo ? combo->title() : QString());
    }
    refreshNotices();
}

void HotkeysPage::refreshNotices()
{
    const QString borrowed = m_services.borrowedKeys().join(", ");
    m_borrowed->setVisible(!borrowed.isEmpty());
    if (!borrowed.isEmpty())
        m_borrowed->show(Notice::Kind::information,
                         tr("Your desktop takes its own screenshots with %1. Kovrel borrows these keys while it runs, "
                            "and gives them back when it ends.")
                             .arg(borrowed));
    const QStringList refused = refusals();
    m_refused->setVisible(!refused.isEmpty());
    if (!refused.isEmpty())
        m_refused->show(Notice::Kind::warning, refused.join('\n'));
}

QStringList HotkeysPage::refusals() const
{
    QStringList reasons;
    for (const Row& row : m_rows)
        if (const auto reason = m_services.refusal(HotkeySettings::keyOf(*row.entry.hotkey).name))
            reasons << *reason + '.';
    return reasons;
}

} // namespace Kovrel
