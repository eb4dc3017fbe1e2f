#include "reading/LanguageChoice.h"

namespace Kovrel {

QDateTime LanguageChoice::changed(Preferences& preferences, const QDateTime& now)
{
    const QStringList chosen = preferences.get(Settings::textLanguages);
    if (chosen != preferences.get(Settings::notedTextLanguages)) {
        preferences.set(Settings::notedTextLanguages, chosen);
        preferences.set(Settings::textLanguagesChosen, now.toString(Qt::ISODateWithMs));
    }
    return QDateTime::fromString(preferences.get(Settings::textLanguagesChosen), Qt::ISODateWithMs);
}

} // namespace Kovrel
