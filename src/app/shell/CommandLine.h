#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

namespace lyrabox {

/// What the program was started with.
struct CommandLine {
    enum class Task {
        Run,
        ShowHelp,
        ShowVersion,
        Complain, ///< about `unknownOption`
    };
    Task task = Task::Run;
    /// Files and folders to open, absolute; also URLs that are not on this machine.
    QList<QUrl> urls;
    QString unknownOption;
};

/// Reads `arguments`, the program's name not among them. A relative path counts from
/// `workingFolder`, and without one from the root. Paths are bytes; those that are no UTF-8 stay as
/// they are in the URL.
CommandLine readCommandLine(const QList<QByteArray> &arguments, const QByteArray &workingFolder);

/// The same of main()'s arguments and the process's own folder.
CommandLine readCommandLine(int argc, const char *const *argv);

/// `--help`'s text, and `--version`'s. Both end with a line break.
QString commandLineHelp();
QString versionText();

} // namespace lyrabox
