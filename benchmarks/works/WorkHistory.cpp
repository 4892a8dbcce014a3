// Reads a history of practising with as many lines as the argument says, and finds the best speed
// of every loop in it.

#include "Work.h"

#include "practice/BestSpeeds.h"

#include <QTemporaryDir>
#include <QTimeZone>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int songs = 40;
constexpr int loops = 7;     // of each song
constexpr int apart = 6'000; // seconds from line to line: 15 lines a day

QString writeHistory(const QTemporaryDir &folder, int lines)
{
    const QDateTime begin(QDate(2016, 11, 23), QTime(20, 0), QTimeZone(3600));
    QString path = folder.filePath(u"History.csv"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        work::fail("cannot write the history");
    file.write(practiceLogHeader());
    for (int i = 0; i < lines; ++i)
        file.write(practiceLogText({.at = begin.addSecs(static_cast<qint64>(i) * apart),
                                    .song = u"Corner Shop Blues %1"_s.arg(i % songs),
                                    .artist = u"The Demo Band"_s,
                                    .loop = u"The passage in bar %1"_s.arg(i % loops),
                                    .from = 546933,
                                    .to = 738150,
                                    .speed = 50.0 + i % 50,
                                    .passes = i % 9,
                                    .missed = i % 3,
                                    .seconds = 60}));
    return path;
}

} // namespace

int main(int argc, char **argv)
{
    const work::Arguments arguments = work::arguments(argc, argv);
    work::startApplication();
    const QTemporaryDir folder;
    const PracticeLog log(writeHistory(folder, std::stoi(arguments.argument)));
    std::size_t lines = 0;
    const work::Cost cost = work::measureRepeated([] {},
                                                  [&] {
                                                      const PracticeLogReading reading = log.read();
                                                      const BestSpeeds best(reading.lines);
                                                      lines =
                                                          best.isEmpty() ? 0 : reading.lines.size();
                                                  });
    work::report(cost, static_cast<double>(lines));
    return EXIT_SUCCESS;
}
