#include "app/Translations.h"

#include <QFile>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace Kovrel {

namespace {

constexpr QLatin1StringView folder(":/translations");

void add(QCoreApplication& application, const QLocale& locale, const QString& name, const QString& from)
{
    auto* const translator = new QTranslator(&application);
    if (translator->load(locale, name, "_", from))
        QCoreApplication::installTranslator(translator);
}

} // namespace

std::optional<QLocale> Translations::chosen(const QStringList& preferred)
{
    for (const QString& tag : preferred) {
        QLocale locale(tag);
        if (locale.language() == QLocale::English || locale.language() == QLocale::C)
            return std::nullopt;
        if (QFile::exists(folder + "/kovrel_" + QLocale::languageToCode(locale.language()) + ".qm"))
            return locale;
    }
    return std::nullopt;
}

// The dialogs of the toolkit are translated with us or not at all: both languages in one window would be neither. The
// texts are English; only where they count there are two of each.
void Translations::install(QCoreApplication& application)
{
    const auto locale = chosen(QLocale::system().uiLanguages());
    if (!locale)
        return add(application, QLocale::English, "plurals", folder);
    add(application, *locale, "kovrel", folder);
    add(application, *locale, "qtbase", QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    QGuiApplication::setLayoutDirection(locale->textDirection());
}

} // namespace Kovrel
