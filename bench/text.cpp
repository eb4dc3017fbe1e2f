// text FOLDER [SCREENSHOT...]: reads every picture that FOLDER/manifest.tsv names with `kovrel text` and with
// `tesseract`, in the same languages, and compares their character error rates; then their best times for each
// screenshot, side by side, Kovrel's in a running instance. Ends with 1 when a bound is missed.

#include "bench/Manifest.h"
#include "bench/Samples.h"
#include "tests/e2e/UserSession.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

using namespace Kovrel;
using Testing::UserSession;

namespace {

constexpr double uprightBound = 0.7;  // of tesseract's errors, all upright files together
constexpr double fileBound = 0.005;   // above tesseract's rate, on any file
constexpr double rotatedBound = 0.02; // the rate of a rotated page
constexpr double timeBound = 0.8;     // of tesseract's time
constexpr int rounds = 7;

// White space, quotes, dashes and bullets count as one of their kind.
QString normal(QString text)
{
    text = text.normalized(QString::NormalizationForm_C);
    for (const auto& [from, to] : std::initializer_list<std::pair<QStringView, const char*>>{
             {u"“”„", "\""}, {u"‘’‚", "'"}, {u"–—−", "-"}, {u"•·\u00a0", " "}})
        for (const QChar c : from)
            text.replace(c, QString::fromLatin1(to));
    text.replace(QString::fromUtf8("…"), QString("..."));
    text.replace("''", "\"");
    return text.simplified();
}

int editDistance(const QString& a, const QString& b)
{
    std::vector<int> row(size_t(b.size()) + 1);
    for (size_t j = 0; j < row.size(); ++j)
        row[j] = int(j);
    for (const QChar c : a) {
        int diagonal = row[0]++;
        for (size_t j = 1; j < row.size(); ++j) {
            const int changed = diagonal + (c != b[qsizetype(j) - 1]);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, changed});
        }
    }
    return row.back();
}

struct Score {
    int errors = 0;
    int length = 0;

    double rate() const { return double(errors) / std::max(length, 1); }

    void operator+=(const Score& other)
    {
        errors += other.errors;
        length += other.length;
    }
};

Score score(const QString& truth, const QByteArray& read)
{
    const QString expected = normal(truth);
    return {editDistance(expected, normal(QString::fromUtf8(read))), int(expected.size())};
}

QString contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool compareAccuracy(UserSession& session, const QDir& folder)
{
    Score ours;
    Score theirs;
    bool isGood = true;
    std::printf("%-28s %8s %10s\n", "file", "kovrel", "tesseract");
    for (const auto& row : Bench::readManifest(folder.filePath("manifest.tsv"))) {
        const QString file = folder.filePath(row["file"]);
        const QString truth = contentOf(folder.filePath(row["truth_file"]));
        session.prepare({"textLanguages=" + QString(row["languages"]).replace('+', ',')});
        const Score our = score(truth, session.kovrel({"text", file}).output);
        const Score their = score(truth, session.run("tesseract", {file, "-", "-l", row["languages"]}).output);
        const bool isUpright = row["rotation_clockwise"].toInt() == 0;
        const bool isFileGood = our.rate() <= their.rate() + fileBound && (isUpright || our.rate() <= rotatedBound);
        std::printf("%-28s %8.4f %10.4f %s\n", qUtf8Printable(row["file"]), our.rate(), their.rate(),
                    isFileGood ? "" : "MISSED");
        isGood &= isFileGood;
        if (isUpright) {
            ours += our;
            theirs += their;
        }
    }
    const double ratio = double(ours.errors) / std::max(theirs.errors, 1);
    std::printf("%-28s %8.4f %10.4f ratio %.2f, at most %.2f\n", "upright together", ours.rate(), theirs.rate(), ratio,
                uprightBound);
    return isGood && ours.length > 0 && ratio <= uprightBound;
}

// The times of a program, and how many words it found.
struct Timing {
    Bench::Samples milliseconds;
    qsizetype words = 0;

    template <class Read>
    void measure(Read read)
    {
        milliseconds.add(
            Bench::milliseconds([&] { words = QString::fromUtf8(read().output).simplified().count(' ') + 1; }));
    }
};

bool compareTimes(UserSession& session, const QString& screenshot)
{
    session.kovrel({"text", screenshot});
    Timing ours;
    Timing theirs;
    for (int round = 0; round < rounds; ++round) {
        ours.measure([&] { return session.kovrel({"text", screenshot}); });
        theirs.measure([&] { return session.run("tesseract", {screenshot, "-", "-l", "eng"}); });
    }
    const double ratio = ours.milliseconds.best() / theirs.milliseconds.best();
    std::printf("%-28s %6.0fms %5d words %8.0fms %5d words  ratio %.2f, at most %.2f\n",
                qUtf8Printable(QFileInfo(screenshot).fileName()), ours.milliseconds.best(), int(ours.words),
                theirs.milliseconds.best(), int(theirs.words), ratio, timeBound);
    return ratio <= timeBound;
}

bool compareTimes(const QStringList& screenshots)
{
    const Testing::VirtualDisplay display;
    UserSession session(&display);
    session.setVariable("OMP_THREAD_LIMIT", "1");
    session.prepare({"textLanguages=eng"});
    session.startKovrel({"--background"});
    if (!UserSession::eventually([&session] { return session.instancePid() != 0; }))
        return false;
    bool isGood = true;
    for (const QString& screenshot : screenshots)
        isGood &= compareTimes(session, screenshot);
    return isGood;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    bool isGood = true;
    {
        UserSession session(nullptr, false);
        session.setVariable("OMP_THREAD_LIMIT", "1");
        isGood &= compareAccuracy(session, QDir(arguments.value(1)));
    }
    if (arguments.size() > 2)
        isGood &= compareTimes(arguments.mid(2));
    return isGood ? 0 : 1;
}
