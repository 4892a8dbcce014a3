#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

namespace lyrabox {

/// The parsed command line.
struct CommandLine {
    enum class Task {
        Run,
        ShowHelp,
        ShowVersion,
        ReportUnknownOption, ///< `unknownOption` holds it
    };
    Task task = Task::Run;
    /// The files and folders to open, as absolute URLs. URLs on other machines are kept.
    QList<QUrl> urls;
    QString unknownOption; ///< the first one; empty if there is none
};

/// Parses `arguments`, which do not contain the program's name. Relative paths are resolved against
/// `workingFolder`, or against the root if it is empty. Paths are bytes; bytes that are not UTF-8
/// are kept in the URL. Any thread.
CommandLine readCommandLine(const QList<QByteArray> &arguments, const QByteArray &workingFolder);

/// Parses the arguments of main(). Uses the current folder of the process.
CommandLine readCommandLine(int argc, const char *const *argv);

/// The texts of `--help` and `--version`. Both end with a line break.
QString commandLineHelp();
QString versionText();

} // namespace lyrabox
