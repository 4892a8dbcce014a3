#include "app/shell/CommandLine.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <filesystem>
#include <system_error>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

struct CommandLineText {
    Q_DECLARE_TR_FUNCTIONS(CommandLineText)
};

bool isUrl(const QByteArray &argument)
{
    return argument.toLower().startsWith("file:") || argument.contains("://");
}

QUrl urlOfPath(const QByteArray &path, const QByteArray &workingFolder)
{
    const QByteArray absolute = path.startsWith('/') ? path : workingFolder + '/' + path;
    // Latin-1 maps every byte to one character and back.
    const QByteArray clean = QDir::cleanPath(QString::fromLatin1(absolute)).toLatin1();
    const QString text = QFile::decodeName(clean);
    return QFile::encodeName(text) == clean
               ? QUrl::fromLocalFile(text)
               : QUrl::fromEncoded("file://" + clean.toPercentEncoding("/"));
}

QUrl urlOfArgument(const QByteArray &argument, const QByteArray &workingFolder)
{
    if (!isUrl(argument))
        return urlOfPath(argument, workingFolder);
    QUrl url = QUrl::fromEncoded(argument);
    if (url.host() == u"localhost"_s)
        url.setHost(QString());
    return url;
}

} // namespace

CommandLine readCommandLine(const QList<QByteArray> &arguments, const QByteArray &workingFolder)
{
    CommandLine line;
    bool takesOptions = true;
    for (const QByteArray &argument : arguments) {
        if (takesOptions && argument.startsWith('-') && argument != "-") {
            if (argument == "--")
                takesOptions = false;
            else if (argument == "--help" || argument == "-h")
                return {.task = CommandLine::Task::ShowHelp, .urls = {}, .unknownOption = {}};
            else if (argument == "--version" || argument == "-v")
                return {.task = CommandLine::Task::ShowVersion, .urls = {}, .unknownOption = {}};
            else if (line.task == CommandLine::Task::Run) {
                line.task = CommandLine::Task::ReportUnknownOption;
                line.unknownOption = QString::fromLocal8Bit(argument);
            }
        } else if (!argument.isEmpty()) {
            line.urls.append(urlOfArgument(argument, workingFolder));
        }
    }
    return line;
}

CommandLine readCommandLine(int argc, const char *const *argv)
{
    QList<QByteArray> arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(argv[i]);
    std::error_code gone;
    const std::filesystem::path folder = std::filesystem::current_path(gone);
    return readCommandLine(arguments, QByteArray::fromStdString(folder.string()));
}

QString commandLineHelp()
{
    return CommandLineText::tr(
        "Usage: lyrabox [options] [files, folders or file: URLs]\n"
        "\n"
        "Audio files become the list of songs, and the first one plays. Folders are added\n"
        "to the list of folders. A program that runs already takes both over.\n"
        "\n"
        "Options:\n"
        "  -h, --help     show this help\n"
        "  -v, --version  show the version\n"
        "  --             only files and folders follow\n");
}

QString versionText()
{
    return u"Lyrabox %1\n"_s.arg(QStringLiteral(LYRABOX_VERSION));
}

} // namespace lyrabox
