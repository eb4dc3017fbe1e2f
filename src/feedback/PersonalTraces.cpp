#include "feedback/PersonalTraces.h"

#include <QDir>
#include <QUrl>

#include <pwd.h>
#include <unistd.h>

namespace Kovrel {

namespace {

// Not as a part of a longer name.
QString whole(const QString& text)
{
    return "(?<![A-Za-z0-9_])" + QRegularExpression::escape(text) + "(?![A-Za-z0-9_])";
}

} // namespace

PersonalTraces::PersonalTraces(const QString& home, const QString& userName)
{
    const QString path = QDir::cleanPath(home);
    const QString encoded = QUrl::fromLocalFile(path).path(QUrl::FullyEncoded);
    if (path.size() > 1)
        for (const QString& each : {path, encoded})
            add(QRegularExpression::escape(each) + "(?![A-Za-z0-9_.-])", "~");
    add("\\b(?!file:)([a-z][a-z0-9+.-]*)://[^\\s\"']+", "\\1://(hidden)");
    add("\\b(token|state|password|secret)=[^\\s&\"']+", "\\1=(hidden)");
    add("\\b[0-9A-Fa-f]{8}-?(?:[0-9A-Fa-f]{4}-?){3}[0-9A-Fa-f]{12}\\b", "(id)");
    if (!userName.isEmpty())
        add(whole(userName), "(user)");
}

PersonalTraces PersonalTraces::ofThisUser()
{
    const passwd* const user = ::getpwuid(::getuid());
    return {QDir::homePath(), user ? QString::fromLocal8Bit(user->pw_name) : qEnvironmentVariable("USER")};
}

void PersonalTraces::add(const QString& expression, const QString& instead)
{
    m_rules.push_back({QRegularExpression(expression), instead});
}

QString PersonalTraces::removed(QString text) const
{
    for (const Rule& rule : m_rules)
        text.replace(rule.trace, rule.instead);
    return text;
}

} // namespace Kovrel
