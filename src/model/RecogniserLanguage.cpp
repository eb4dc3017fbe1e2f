#include "model/RecogniserLanguage.h"

#include <QLocale>

namespace Kovrel {

namespace {

constexpr qsizetype shortestModel = 3;

QString nativeName(const QString& model)
{
    if (model.startsWith("chi_sim"))
        return QString::fromUtf8("简体中文");
    if (model.startsWith("chi_tra"))
        return QString::fromUtf8("繁體中文");
    if (model.startsWith("eng")) // not that of one country
        return "English";
    if (model.startsWith("spa"))
        return QString::fromUtf8("Español");
    const QString code = model.section('_', 0, 0);
    const QLocale::Language language = QLocale::codeToLanguage(code == "nor" ? QString("nb") : code);
    return language == QLocale::AnyLanguage || language == QLocale::C ? QString()
                                                                      : QLocale(language).nativeLanguageName();
}

} // namespace

QString RecogniserLanguage::model(const QString& language)
{
    QString tag = language.trimmed();
    tag.replace('_', '-');
    const QString code = tag.section('-', 0, 0).toLower();
    if (code == "zh")
        return tag.contains("TW") || tag.contains("HK") || tag.contains("Hant") ? "chi_tra" : "chi_sim";
    if (code == "nb" || code == "nn" || code == "no")
        return "nor";
    const QString threeLetters = QLocale::languageToCode(QLocale::codeToLanguage(code), QLocale::ISO639Part2T);
    return code.size() == 2 && !threeLetters.isEmpty() ? threeLetters : language.trimmed();
}

QString RecogniserLanguage::title(const QString& model)
{
    QString name = nativeName(model);
    if (name.isEmpty())
        return model;
    name[0] = name[0].toUpper();
    const QString variant = model.startsWith("chi_") ? model.section('_', 2) : model.section('_', 1);
    return variant.isEmpty() ? name : name + " (" + variant + ')';
}

QString RecogniserLanguage::package(const QString& model)
{
    if (model.size() < shortestModel)
        return {};
    return "tesseract-ocr-" + model.toLower().replace('_', '-').replace('/', '-');
}

} // namespace Kovrel
