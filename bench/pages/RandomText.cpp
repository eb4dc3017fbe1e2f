#include "bench/pages/RandomText.h"

#include <QHash>

namespace Kovrel::Bench {

namespace {

QStringList split(const char* text)
{
    return QString::fromUtf8(text).split(' ');
}

const QStringList& vocabulary(const QString& language)
{
    static const QHash<QString, QStringList> all{
        {"eng",
         split("the of and window picture every colour between lines people read screens while other programs wait "
               "answers from slow disks networks house river garden morning letter question school winter "
               "always never under about quick brown fox jumps over lazy dog value market paper system light "
               "water company number part world case week point government hand small large early young "
               "important different public able order report change power office health person history result "
               "reason research moment teacher force education keyboard settings account message update")},
        {"deu", split("der die das und über für schön größer Straße Häuser Mädchen Übung Öl hören müssen können heiß "
                      "Fenster Bücher Tür später während Gespräch natürlich ähnlich Vorschläge grüßen weiß Fuß "
                      "Erklärung zurück möglich Öffnung Änderung")},
        {"fra", split("le la les été où déjà français garçon élève forêt île hôtel être très après leçon août "
                      "différence préféré fenêtre goût naïf cœur sœur façade théâtre général première possibilité "
                      "à château drôle")},
        {"pol", split("być może książka źródło łódź gęś żółty ćwiczenie świat dzień miłość pieniądze język słońce "
                      "wiedzieć część człowiek pięć sześć następny wrażenie również ponieważ mężczyzna zdjęcie")},
        {"ces", split("příliš žluťoučký kůň úpěl ďábelské ódy řeka město člověk děti čtvrtek věc škola příběh "
                      "nejlepší počítač důležitý můžete otevřít soubor obrázek zpráva začátek světlo tři čtyři")},
        {"tur", split("güzel çocuk öğrenci şehir ışık değil büyük küçük yağmur dünya için çünkü gözlük İstanbul "
                      "görüntü açık ağaç kırmızı yeşil düşünce başlangıç önemli üzerinde")},
        {"ara", split("كتاب مدرسة بيت الشمس القمر مدينة طريق صديق ماء سماء كبير صغير جديد قديم يوم ليلة عمل صورة "
                      "نافذة برنامج رسالة سؤال جواب لغة")},
        {"heb", split("ספר בית שמש ירח עיר דרך חבר מים שמים גדול קטן חדש ישן יום לילה עבודה תמונה חלון תוכנה "
                      "הודעה שאלה תשובה שפה ילד")}};
    return *all.find(language);
}

QString capitalised(QString text)
{
    text[0] = text[0].toUpper();
    return text;
}

QString twoDigits(int number)
{
    return QString("%1").arg(number, 2, 10, QChar('0'));
}

} // namespace

QString RandomText::word(const QString& language)
{
    return oneOf(vocabulary(language));
}

QString RandomText::words(int count, const QString& language)
{
    QStringList chosen;
    while (chosen.size() < count)
        chosen << word(language);
    return chosen.join(' ');
}

QString RandomText::sentence(int count, const QString& language)
{
    return capitalised(words(count, language)) + '.';
}

QString RandomText::name()
{
    static const QStringList first = split("Anna Boris Clara David Emma Felix Grace Hugo Nora Jonas Kate Peter");
    static const QStringList last = split("Miller Schmidt Brown Novak Larsen Weber Taylor Fischer Moore Jensen");
    return oneOf(first) + ' ' + oneOf(last);
}

QString RandomText::identifier()
{
    QString text = word();
    for (int more = number(0, 2); more > 0; --more)
        text += chance(0.5) ? '_' + word() : capitalised(word());
    return text;
}

QString RandomText::constant()
{
    return (word() + '_' + word()).toUpper();
}

QString RandomText::version()
{
    static const QStringList prefixes{"^", "~", "", ""};
    return QString("%1%2.%3.%4").arg(oneOf(prefixes)).arg(number(0, 19)).arg(number(0, 29)).arg(number(0, 12));
}

QString RandomText::digits(int count)
{
    QString text;
    while (text.size() < count)
        text += QChar('0' + number(text.isEmpty(), 9));
    return text;
}

QString RandomText::hexadecimal(int count)
{
    QString text;
    while (text.size() < count)
        text += "0123456789abcdef"[number(0, 15)];
    return text;
}

QString RandomText::date()
{
    return QString("20%1-%2-%3").arg(twoDigits(number(10, 29)), twoDigits(number(1, 12)), twoDigits(number(1, 28)));
}

QString RandomText::time()
{
    return QString("%1:%2:%3").arg(twoDigits(number(0, 23)), twoDigits(number(0, 59)), twoDigits(number(0, 59)));
}

QString RandomText::path()
{
    static const QStringList roots{"/usr/lib", "/home/anna", "/var/log", "src", "./build"};
    static const QStringList ends{".cpp", ".h", ".txt", ".py", ".json", ".log", ".conf"};
    return oneOf(roots) + '/' + word() + '/' + identifier() + oneOf(ends);
}

QString RandomText::url()
{
    static const QStringList ends{"org", "com", "net", "de"};
    return QString("https://%1.%2.%3/%4/%5?id=%6")
        .arg(chance(0.5) ? "www" : word(), word(), oneOf(ends), word(), identifier(), digits(4));
}

QString RandomText::quantity()
{
    static const QStringList units{"kg", "km", "GB", "MB/s", "ms", "%", "EUR", "USD", "px", "cm", "V", "kWh"};
    return QString("%1.%2 %3").arg(number(1, 999)).arg(number(0, 99)).arg(oneOf(units));
}

} // namespace Kovrel::Bench
