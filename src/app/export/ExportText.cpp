#include "app/export/ExportText.h"

#include "app/controls/SecondsToMinutesTransformer.h"
#include "export/ExportRequest.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace lyrabox::exportText {

namespace {

/// The context of the texts.
struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::ExportText)
};

constexpr double longWork = 90.0; // seconds; a longer time is told in minutes

QString otherProblem(Status status)
{
    switch (status) {
    case status::missingEncoder:
        return Text::tr("This format cannot be written here.");
    case status::missingDecoder:
        return Text::tr("Songs cannot be read here.");
    case status::notEnoughMemory:
        return Text::tr("There is not enough memory.");
    case status::nothingToWrite:
        return Text::tr("There is nothing to export: the loop lies beyond the end of the song.");
    case status::unspecified:
        return Text::tr("The disk failed while the song was read or the file was written.");
    default:
        return Text::tr("The export failed (%1).").arg(status);
    }
}

} // namespace

QString format(SongFormat format)
{
    switch (format) {
    case SongFormat::Flac:
        return Text::tr("FLAC (lossless)");
    case SongFormat::Wav16:
        return Text::tr("WAV, 16 bits");
    case SongFormat::Wav24:
        return Text::tr("WAV, 24 bits");
    case SongFormat::WavFloat:
        return Text::tr("WAV, 32 bits (float)");
    case SongFormat::Opus:
        return Text::tr("Opus");
    case SongFormat::Mp3:
        return Text::tr("MP3");
    case SongFormat::M4a:
        return Text::tr("M4A (AAC)");
    }
    return {};
}

QString problem(Status status)
{
    switch (status) {
    case status::noError:
        return {};
    case status::fileNotFound:
        return Text::tr("The song's file is gone.");
    case status::noPermission:
        return Text::tr("The song's file may not be read.");
    case status::songChanged:
        return Text::tr("The song's file has changed. Open it again, then export it.");
    case status::unsupportedFileType:
    case status::unsupportedDataFormat:
    case status::invalidFile:
        return Text::tr("The song's file cannot be read.");
    case status::folderNotFound:
        return Text::tr("The folder is gone.");
    case status::notWritable:
        return Text::tr("The file may not be written there.");
    case status::nameTooLong:
        return Text::tr("The name is too long for this disk.");
    case status::diskFull:
        return Text::tr("The disk is full.");
    case status::fileTooLarge:
        return Text::tr("The file is too large for this disk.");
    default:
        return otherProblem(status);
    }
}

QString estimate(const exportPlan::Estimate &estimate)
{
    const auto seconds = static_cast<quint64>(std::llround(std::max(0.0, estimate.seconds)));
    const QString size = QLocale().formattedDataSize(
        static_cast<qint64>(estimate.bytes), estimate.bytes >= 1e6 && estimate.bytes < 10e6 ? 1 : 0,
        QLocale::DataSizeSIFormat);
    const double work = std::max(1.0, estimate.workSeconds);
    const QString time = work < longWork ? Text::tr("about %1 s").arg(std::lround(std::ceil(work)))
                                         : Text::tr("about %1 min").arg(std::lround(work / 60.0));
    return Text::tr("%1 · about %2 · ready in %3").arg(timeText(seconds), size, time);
}

} // namespace lyrabox::exportText
