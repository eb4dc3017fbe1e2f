// text_kinds SEED PAGES FOLDER [KIND...]: generates so many pages of each kind of text, reads them with Kovrel's
// recogniser and with the command `tesseract` in its modes 3 (finds the layout) and 6 (one block), and compares their
// character error rates. FOLDER keeps the pages and what was read, and spares tesseract what it has read before. Ends
// with 1 when a bound is missed. Wants the fonts that it names; FONTCONFIG_FILE may say where they are.

#include "bench/pages/PageKinds.h"
#include "bench/pages/ReadingErrors.h"
#include "platform/plugins/PluginTextRecogniser.h"
#include "recognition/text/TextObservations.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>

#include <cstdio>

using namespace Kovrel;
using Bench::ReadingErrors;
using Bench::TextPage;
using Bench::PageKinds::page;

namespace {

constexpr double kindBound = 0.005; // above the better one of tesseract's modes
constexpr double pageBound = 0.05;  // likewise
constexpr double wholeBound = 0.5;  // of the errors of mode 3
constexpr int modes[] = {3, 6};

struct Errors {
    ReadingErrors ours;
    ReadingErrors theirs[2]; // by mode

    double better() const { return std::min(theirs[0].rate(), theirs[1].rate()); }

    Errors& operator+=(const Errors& other)
    {
        ours += other.ours;
        theirs[0] += other.theirs[0];
        theirs[1] += other.theirs[1];
        return *this;
    }
};

void print(const QString& name, const Errors& errors, double bound)
{
    std::printf("%-40s %8.4f %8.4f %8.4f %8.4f %s\n", qUtf8Printable(name), errors.ours.rate(), errors.theirs[0].rate(),
                errors.theirs[1].rate(), errors.better(), errors.ours.rate() > errors.better() + bound ? "MISSED" : "");
}

void write(const QString& path, const QString& text)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text.toUtf8());
}

QString contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

class Comparison {
public:
    explicit Comparison(const QDir& folder) : m_folder(folder) {}

    Errors compare(const TextPage& page)
    {
        const QString stem = m_folder.filePath(page.name);
        page.image.save(stem + ".png");
        write(stem + ".truth", page.texts.join('\n'));
        readByTesseract(page, stem);
        const QString read = readByKovrel(page);
        write(stem + ".kovrel", read);
        Errors errors{.ours = ReadingErrors::of(page.texts, read)};
        for (size_t mode = 0; mode < std::size(modes); ++mode)
            errors.theirs[mode] = ReadingErrors::of(page.texts, contentOf(output(stem, modes[mode]) + ".txt"));
        return errors;
    }

private:
    static QString output(const QString& stem, int mode) { return stem + ".psm" + QString::number(mode); }

    // The modes at the same time.
    static void readByTesseract(const TextPage& page, const QString& stem)
    {
        std::vector<std::unique_ptr<QProcess>> running;
        for (const int mode : modes) {
            if (QFile::exists(output(stem, mode) + ".txt"))
                continue;
            running.push_back(std::make_unique<QProcess>());
            running.back()->start(
                "tesseract", {stem + ".png", output(stem, mode), "-l", page.languages, "--psm", QString::number(mode)});
        }
        for (const auto& process : running)
            process->waitForFinished(-1);
    }

    QString readByKovrel(const TextPage& page)
    {
        const auto seen =
            m_recogniser.recognise(page.image, {.languages = {page.languages}, .customWords = {"Kovrel"}});
        if (!seen)
            qFatal("%s", qUtf8Printable(seen.error().message));
        return TextObservations::result(*seen, page.image.size()).fullText;
    }

    QDir m_folder;
    PluginTextRecogniser m_recogniser;
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("OMP_THREAD_LIMIT", "1");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 4)
        qFatal("text_kinds SEED PAGES FOLDER [KIND...]");
    if (const QStringList missing = Bench::PageKinds::missingFonts(); !missing.isEmpty())
        std::printf("without the fonts %s\n", qUtf8Printable(missing.join(", ")));
    const QStringList kinds = arguments.size() > 4 ? arguments.mid(4) : Bench::PageKinds::names();
    QDir().mkpath(arguments[3]);
    Comparison comparison{QDir(arguments[3])};
    std::vector<std::pair<QString, Errors>> pages;
    Errors together;
    bool isGood = true;
    std::printf("%-40s %8s %8s %8s %8s\n", "kind", "kovrel", "psm 3", "psm 6", "better");
    for (const QString& kind : kinds) {
        Errors ofKind;
        for (int number = 0; number < arguments[2].toInt(); ++number) {
            const TextPage made = page(kind, arguments[1].toUInt(), number);
            pages.emplace_back(made.name, comparison.compare(made));
            ofKind += pages.back().second;
        }
        print(kind, ofKind, kindBound);
        std::fflush(stdout);
        isGood &= ofKind.ours.rate() <= ofKind.better() + kindBound;
        together += ofKind;
    }
    print("together", together, 0);
    const double ratio = double(together.ours.errors) / std::max(together.theirs[0].errors, 1);
    std::printf("ratio to mode 3: %.2f, at most %.2f\n\npages that are worse than the better mode by more than %.2f\n",
                ratio, wholeBound, pageBound);
    for (const auto& [name, errors] : pages)
        if (errors.ours.rate() > errors.better() + pageBound) {
            print(name, errors, pageBound);
            isGood = false;
        }
    return isGood && ratio <= wholeBound ? 0 : 1;
}
