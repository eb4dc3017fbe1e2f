#include "bench/pages/PageKinds.h"

#include "bench/pages/PageWriter.h"
#include "bench/pages/Scenery.h"

#include <QBuffer>
#include <QFontDatabase>

#include <algorithm>
#include <functional>

namespace Kovrel::Bench {

namespace {

struct Kind {
    QString name;
    bool isCode = false; // set in a font whose letters are equally wide
    std::function<void(PageWriter&, RandomText&)> write;
    QString languages = "eng";
};

const QStringList equallyWide{"DejaVu Sans Mono", "Liberation Mono", "Hack",           "Fira Code",
                              "JetBrains Mono",   "Inconsolata",     "Noto Sans Mono", "FreeMono"};
const QStringList proportional{"DejaVu Sans", "DejaVu Serif", "Liberation Sans", "Liberation Serif",
                               "Inter",       "Roboto",       "Cantarell",       "Open Sans",
                               "Lato",        "Noto Sans",    "FreeSans",        "Noto Serif"};

int rowsOf(RandomText& text)
{
    return text.number(6, 14);
}

// --- What programmers look at

void writeJson(PageWriter& page, RandomText& text)
{
    page.line("{");
    for (int row = rowsOf(text); row > 0; --row)
        switch (text.number(0, 4)) {
        case 0:
            page.line(QString("\"%1\": %2,").arg(text.word(), text.digits(text.number(1, 5))), 2);
            break;
        case 1:
            page.line(QString("\"%1\": \"%2\",").arg(text.identifier(), text.words(3)), 2);
            break;
        case 2:
            page.line(QString("\"%1\": [%2, %3, null],").arg(text.word(), text.digits(2), text.digits(3)), 2);
            break;
        default:
            page.line(QString("\"%1\": \"%2\",").arg(text.word(), text.version()), 2);
        }
    page.line("}");
}

void writeVersions(PageWriter& page, RandomText& text)
{
    for (int row = text.number(1, 12); row > 0; --row)
        page.line(QString("\"%1\": \"%2\",").arg(text.word(), text.version()));
}

void writeShell(PageWriter& page, RandomText& text)
{
    for (int row = rowsOf(text); row > 0; --row)
        switch (text.number(0, 4)) {
        case 0:
            page.line(QString("for f in *.txt; do cp \"$f\" %1; done").arg(text.path()));
            break;
        case 1:
            page.line(QString("export %1=%2").arg(text.constant(), text.path()));
            break;
        case 2:
            page.line(QString("grep -rn '%1' %2 | sort -u").arg(text.word(), text.path()));
            break;
        case 3:
            page.line(QString("if [ -f %1 ]; then exit %2; fi").arg(text.path(), text.digits(1)));
            break;
        default:
            page.line(QString("$ git commit -m \"%1\" && ls -l --all").arg(text.words(3)));
        }
}

void writeCpp(PageWriter& page, RandomText& text)
{
    page.line(QString("#include <%1.h>").arg(text.word()));
    for (int row = rowsOf(text) / 2; row > 0; --row) {
        page.line(QString("int %1(const %2& %3)").arg(text.identifier(), text.identifier(), text.word()));
        page.line("{");
        page.line(QString("for (int i = 0; i < %1; ++i)").arg(text.digits(2)), 4);
        page.line(QString("%1[i] += %2 * %3->%4();").arg(text.word(), text.digits(2), text.word(), text.identifier()),
                  8);
        page.line(QString("return %1 ? %2 : -1; // %3").arg(text.word(), text.constant(), text.words(2)), 4);
        page.line("}");
    }
}

void writeTrace(PageWriter& page, RandomText& text)
{
    page.line("Traceback (most recent call last):");
    for (int row = rowsOf(text) / 2; row > 0; --row) {
        page.line(QString("File \"%1\", line %2, in %3").arg(text.path(), text.digits(3), text.identifier()), 2);
        page.line(QString("%1 = self.%2(%3, key=\"%4\")").arg(text.word(), text.identifier(), text.word(), text.word()),
                  4);
    }
    page.line(QString("ValueError: invalid literal for int() with base 10: '%1'").arg(text.word()));
}

void writeDiff(PageWriter& page, RandomText& text)
{
    const bool isDark = page.style().isDark();
    const QColor added = isDark ? QColor(0x1B, 0x3A, 0x24) : QColor(0xE6, 0xFF, 0xEC);
    const QColor removed = isDark ? QColor(0x4A, 0x1F, 0x23) : QColor(0xFF, 0xEB, 0xE9);
    page.line(QString("@@ -%1,7 +%2,8 @@ %3").arg(text.digits(2), text.digits(2), text.identifier()));
    for (int row = rowsOf(text); row > 0; --row) {
        const QString content = QString("%1 = %2(%3);").arg(text.identifier(), text.identifier(), text.digits(2));
        switch (text.number(0, 2)) {
        case 0:
            page.lineOn(added, "+ " + content);
            break;
        case 1:
            page.lineOn(removed, "- " + content);
            break;
        default:
            page.line(content, 2);
        }
    }
}

void writeTerminal(PageWriter& page, RandomText& text)
{
    page.line("anna@desk:~/src$ ls -la");
    page.line(QString("total %1").arg(text.digits(3)));
    for (int row = rowsOf(text); row > 0; --row)
        page.line(QString("%1 %2 anna anna %3 %4 %5 %6")
                      .arg(text.oneOf({"-rw-r--r--", "drwxr-xr-x", "-rwxr-xr-x"}), text.digits(1),
                           QString("%1").arg(text.digits(text.number(2, 6)), 7),
                           text.oneOf({"Jan", "Mar", "Aug", "Nov"}), text.time().left(5), text.identifier() + ".txt"));
    page.line("anna@desk:~/src$ make -j4 2>&1 | tail");
}

void writeLog(PageWriter& page, RandomText& text)
{
    for (int row = rowsOf(text); row > 0; --row)
        page.line(QString("%1 %2 [%3] %4: %5 (code %6)")
                      .arg(text.date(), text.time(), text.oneOf({"INFO", "WARN", "ERROR", "DEBUG"}), text.identifier(),
                           text.words(4), text.digits(3)));
}

// --- What programs show

void writeTable(PageWriter& page, RandomText& text)
{
    const int column = page.style().pixelSize * 8;
    const bool isRuled = text.chance(0.5);
    const int rows = rowsOf(text);
    for (int row = 0; row <= rows; ++row) {
        const int baseline = page.y();
        const QStringList cells =
            row == 0 ? QStringList{"Name", "Date", "Amount", "Count"}
                     : QStringList{text.name(), text.date(), text.quantity(), text.digits(text.number(1, 4))};
        page.setFont(1, row == 0);
        for (int cell = 0; cell < cells.size(); ++cell)
            page.write(60 + cell * column + (cell > 1 ? column - 40 - page.advance(cells[cell]) : 0), baseline,
                       cells[cell]);
        if (isRuled) {
            page.painter().setPen(QColor(128, 128, 128));
            page.painter().drawLine(50, baseline + page.lineHeight() / 3, 50 + 4 * column,
                                    baseline + page.lineHeight() / 3);
        }
        page.skip(1);
    }
}

void writeForm(PageWriter& page, RandomText& text)
{
    const int labels = page.style().pixelSize * 14;
    for (int row = rowsOf(text) / 2; row > 0; --row) {
        const QRect field(60 + labels, page.y() - page.lineHeight() * 4 / 5, labels * 2, page.lineHeight() * 6 / 5);
        page.painter().setPen(QColor(140, 140, 140));
        page.painter().setBrush(Qt::NoBrush);
        page.painter().drawRoundedRect(field, 4, 4);
        page.include(field);
        page.write(60, page.y(), text.sentence(2).chopped(1) + ':');
        page.write(field.left() + 10, page.y(), text.oneOf({text.name(), text.digits(5), text.date(), text.words(2)}));
        page.skip(1.6);
    }
}

void writeMenu(PageWriter& page, RandomText& text)
{
    const int right = 60 + page.style().pixelSize * 20;
    for (int row = rowsOf(text); row > 0; --row) {
        const QString keys =
            text.oneOf({"Ctrl+", "Ctrl+Shift+", "Alt+", "Super+"}) + text.oneOf({"N", "S", "F4", "P", "Q", "Del"});
        page.write(60, page.y(), text.sentence(text.number(1, 3)).chopped(1) + (text.chance(0.3) ? "..." : ""));
        if (text.chance(0.6))
            page.write(right - page.advance(keys), page.y(), keys);
        page.skip(1.1);
    }
}

void writeChat(PageWriter& page, RandomText& text)
{
    const QColor bubbles[] = {page.style().isDark() ? QColor(60, 62, 68) : QColor(232, 232, 236),
                              page.style().isDark() ? QColor(20, 60, 110) : QColor(205, 228, 255)};
    for (int row = rowsOf(text) / 2; row > 0; --row) {
        const QString message = text.sentence(text.number(2, 7));
        const int x = text.chance(0.5) ? 80 : 240;
        const QRect bubble(x - 16, page.y() - page.lineHeight(), page.advance(message) + 32, page.lineHeight() * 8 / 5);
        page.painter().setPen(Qt::NoPen);
        page.painter().setBrush(bubbles[x == 80 ? 0 : 1]);
        page.painter().drawRoundedRect(bubble, 12, 12);
        page.include(bubble);
        page.write(x, page.y(), message);
        page.skip(2);
    }
}

void writeButtons(PageWriter& page, RandomText& text)
{
    for (int row = 0; row < 3; ++row) {
        int x = 60;
        for (int button = 0; button < 4; ++button) {
            const QString label = text.sentence(text.number(1, 2)).chopped(1);
            const QRect frame(x, page.y() - page.lineHeight(), page.advance(label) + 40, page.lineHeight() * 8 / 5);
            const bool isFilled = text.chance(0.4);
            page.painter().setPen(QPen(QColor(120, 120, 130), text.number(1, 2)));
            page.painter().setBrush(isFilled ? QColor(0x1A, 0x5F, 0xB4) : Qt::transparent);
            page.painter().drawRoundedRect(frame, 6, 6);
            page.include(frame);
            page.setInk(isFilled ? Qt::white : page.style().ink);
            page.write(x + 20, page.y(), label);
            x = frame.right() + 24;
        }
        page.skip(2);
    }
}

// --- What people write

void writeProse(PageWriter& page, RandomText& text)
{
    for (int row = rowsOf(text); row > 0; --row)
        page.line(text.sentence(text.number(5, 11)));
}

void writeSizes(PageWriter& page, RandomText& text)
{
    for (int block = 0; block < 3; ++block) {
        page.setFont(text.number(16, 26) / 10.0, true);
        page.skip(0.8);
        page.line(text.sentence(3).chopped(1));
        page.setFont(1);
        page.skip(0.4);
        page.line(text.sentence(8));
        page.line(text.sentence(7));
        page.setFont(0.8);
        page.line(text.words(6) + ' ' + text.date());
    }
}

void writeEmphasis(PageWriter& page, RandomText& text)
{
    for (int row = rowsOf(text); row > 0; --row) {
        page.setFont(1, text.chance(0.5), text.chance(0.5));
        page.line(text.sentence(text.number(4, 9)));
    }
}

void writeLinks(PageWriter& page, RandomText& text)
{
    for (int row = rowsOf(text); row > 0; --row) {
        const bool isLink = text.chance(0.6);
        page.setFont(1, false, false, isLink);
        page.setInk(!isLink                 ? page.style().ink
                    : page.style().isDark() ? QColor(0x7A, 0xB8, 0xFF)
                                            : QColor(0x0B, 0x57, 0xD0));
        page.line(isLink ? text.sentence(text.number(2, 6)).chopped(1) : text.sentence(7));
    }
}

void writeUrls(PageWriter& page, RandomText& text)
{
    for (int row = rowsOf(text); row > 0; --row)
        page.line(text.chance(0.2) ? text.word() + '.' + text.word() + '@' + text.word() + ".org" : text.url());
}

void writeNumbers(PageWriter& page, RandomText& text)
{
    for (int row = rowsOf(text); row > 0; --row)
        page.line(text.oneOf(
            {text.quantity() + "  " + text.quantity(), text.date() + ' ' + text.time(),
             "0x" + text.hexadecimal(8) + ' ' + text.hexadecimal(12), "+49 " + text.digits(3) + ' ' + text.digits(7),
             QString("%1 x %2 = %3,%4").arg(text.digits(2), text.digits(2), text.digits(1), text.digits(3)),
             QString("192.168.%1.%2:%3").arg(text.number(0, 255)).arg(text.number(0, 255)).arg(text.digits(4)),
             "$" + text.digits(3) + ".99 (-" + text.digits(1) + "%)"}));
}

void writeWord(PageWriter& page, RandomText& text)
{
    page.line(text.oneOf({text.sentence(1).chopped(1), text.word(), text.version(), text.quantity(), text.digits(5),
                          text.constant(), text.word() + ':', text.time(), "\"" + text.word() + "\""}));
}

// Letters that look like no other, one in each cell.
void writeCharacters(PageWriter& page, RandomText& text)
{
    static const QString letters = "ABDEFGHJKLMNPQRTUXYZabdefghkmnqrt2345679";
    for (int row = 0; row < 4; ++row) {
        for (int cell = 0; cell < 6; ++cell)
            page.write(60 + cell * page.style().pixelSize * 6, page.y(),
                       QString(letters[text.number(0, int(letters.size()) - 1)]));
        page.skip(2);
    }
}

std::function<void(PageWriter&, RandomText&)> writeIn(const QString& language)
{
    return [language](PageWriter& page, RandomText& text) {
        for (int row = rowsOf(text); row > 0; --row)
            page.line(text.sentence(text.number(4, 8), language));
    };
}

// --- Text beside pictures

std::function<void(PageWriter&, RandomText&)> writeBeside(Scenery::Kind kind)
{
    return [kind](PageWriter& page, RandomText& text) {
        const QRect frame(60, page.y(), text.number(400, 700), text.number(280, 480));
        Scenery::draw(page.painter(), frame, kind, text);
        page.include(frame);
        page.skip(double(frame.height() + page.lineHeight() * 2) / page.lineHeight());
        for (int row = text.number(2, 5); row > 0; --row)
            page.line(text.sentence(text.number(5, 9)));
    };
}

const std::vector<Kind>& kinds()
{
    static const std::vector<Kind> all{
        {"json", true, writeJson},
        {"versions", true, writeVersions},
        {"shell", true, writeShell},
        {"cpp", true, writeCpp},
        {"trace", true, writeTrace},
        {"diff", true, writeDiff},
        {"terminal", true, writeTerminal},
        {"log", true, writeLog},
        {"table", false, writeTable},
        {"form", false, writeForm},
        {"menu", false, writeMenu},
        {"chat", false, writeChat},
        {"buttons", false, writeButtons},
        {"prose", false, writeProse},
        {"sizes", false, writeSizes},
        {"emphasis", false, writeEmphasis},
        {"links", false, writeLinks},
        {"urls", false, writeUrls},
        {"numbers", false, writeNumbers},
        {"word", false, writeWord},
        {"characters", false, writeCharacters},
        {"german", false, writeIn("deu"), "deu"},
        {"french", false, writeIn("fra"), "fra"},
        {"polish", false, writeIn("pol"), "pol"},
        {"czech", false, writeIn("ces"), "ces"},
        {"turkish", false, writeIn("tur"), "tur"},
        {"arabic", false, writeIn("ara"), "ara"},
        {"hebrew", false, writeIn("heb"), "heb"},
        {"drawing", false, writeBeside(Scenery::Kind::drawing)},
        {"photograph", false, writeBeside(Scenery::Kind::photograph)},
    };
    return all;
}

// --- How a page is drawn, and what it goes through

PageStyle styleFor(const Kind& kind, RandomText& text)
{
    struct Colours {
        QRgb ground, ink, literal;
    };

    static const Colours colours[] = {
        {0xFFFFFF, 0x000000, 0xA31515}, {0xFFFFFF, 0x24292F, 0x0A3069}, {0xFAFAFA, 0x555555, 0x0550AE},
        {0xF0F0F0, 0x333333, 0x986801}, {0x1E1E1E, 0xD4D4D4, 0xCE9178}, {0x282C34, 0xABB2BF, 0x98C379},
        {0x000000, 0xFFFFFF, 0x33DA7A}, {0x300A24, 0xEEEEEC, 0xFCE94F}, {0xFDF6E3, 0x586E75, 0x2AA198},
        {0xE8F0FE, 0x174EA6, 0xA50E0E}, {0x002B36, 0x93A1A1, 0x2AA198}, {0xFFF8C5, 0x3B2300, 0x8250DF}};
    const Colours& chosen = colours[text.number(0, int(std::size(colours)) - 1)];
    const bool isRightToLeft = kind.languages == "ara" || kind.languages == "heb";
    const int logicalSize = text.number(0, 9) < 7 ? text.number(11, 20) : text.number(21, 40);
    const int scale = logicalSize <= 20 && text.chance(0.3) ? 2 : 1;
    return {.family = text.oneOf(kind.isCode     ? equallyWide
                                 : isRightToLeft ? QStringList{"DejaVu Sans"}
                                                 : proportional),
            .pixelSize = logicalSize * scale,
            .isHinted = text.chance(0.5),
            .isColourful = kind.isCode && text.chance(0.6),
            .ink = chosen.ink,
            .ground = chosen.ground,
            .literal = chosen.literal};
}

QImage worn(const QImage& image, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "jpeg", quality);
    return QImage::fromData(bytes).convertToFormat(QImage::Format_RGB32);
}

QImage turned(const QImage& image, double degrees, const QColor& ground)
{
    const QImage result = image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                              .transformed(QTransform().rotate(degrees), Qt::SmoothTransformation);
    QImage page(result.size(), QImage::Format_RGB32);
    page.fill(ground);
    QPainter(&page).drawImage(QPoint(), result);
    return page;
}

} // namespace

QStringList PageKinds::names()
{
    QStringList all;
    for (const Kind& kind : kinds())
        all << kind.name;
    return all;
}

QStringList PageKinds::missingFonts()
{
    QStringList missing;
    for (const QString& family : equallyWide + proportional)
        if (!QFontDatabase::families().contains(family))
            missing << family;
    return missing;
}

TextPage PageKinds::page(const QString& name, quint32 seed, int number)
{
    const auto kind = std::ranges::find(kinds(), name, &Kind::name);
    RandomText text(seed * 1000003 + qChecksum(name.toUtf8()) * 101 + quint32(number));
    const PageStyle style = styleFor(*kind, text);
    PageWriter writer(style);
    kind->write(writer, text);
    TextPage page{
        QString("%1-%2-%3-%4").arg(name).arg(number).arg(style.family.simplified().remove(' ')).arg(style.pixelSize),
        name, writer.finished(text.number(6, 40)), writer.texts(), kind->languages};
    if (text.chance(0.12)) {
        page.image = worn(page.image, text.number(55, 85));
        page.name += "-worn";
    }
    if (text.chance(0.08)) {
        page.image = turned(page.image, text.number(-20, 20) / 10.0, style.ground);
        page.name += "-turned";
    }
    return page;
}

} // namespace Kovrel::Bench
