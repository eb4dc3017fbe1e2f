#include "cards/panels/CodeMenu.h"

#include "ui/Label.h"
#include "ui/tokens/Metrics.h"

#include <QWidgetAction>

namespace Kovrel {

namespace {

constexpr qsizetype mostShown = 600; // characters
constexpr int payloadWidth = 320;

// Words that are too long for a line are broken: an address has no blanks.
QString breakable(const QString& text)
{
    QString broken;
    for (qsizetype place = 0; place < text.size(); ++place) {
        broken += text[place];
        if (place % 12 == 11)
            broken += QChar(0x200B);
    }
    return broken;
}

} // namespace

CodeMenu::CodeMenu(const CardCode& code)
{
    setAttribute(Qt::WA_DeleteOnClose);
    auto* payload = new Label(TextStyle::body);
    payload->setTextFormat(Qt::PlainText);
    payload->setText(breakable(code.shown(mostShown)));
    payload->setWordWrap(true);
    payload->setFixedWidth(payloadWidth);
    payload->setContentsMargins(Spacing::medium, Spacing::small, Spacing::medium, Spacing::small);
    auto* shown = new QWidgetAction(this);
    shown->setDefaultWidget(payload);
    addAction(shown);
    addSeparator();
    if (const auto url = code.link())
        addAction(tr("Open Link"), this, [this, url = *url] { Q_EMIT openWanted(url); });
    addAction(tr("Copy Text"), this, [this, text = code.payload] { Q_EMIT copyWanted(text); });
}

} // namespace Kovrel
