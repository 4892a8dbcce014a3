#include "platform/desktop/ArtworkFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

/// "cover-<process>-<number>.png".
QString fileName(qint64 process, quint64 number)
{
    return u"cover-%1-%2.png"_s.arg(process).arg(number);
}

} // namespace

QString artworkFolder()
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && QFileInfo(runtime).isWritable())
        return runtime + u"/lyrabox"_s;
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + u"/covers"_s;
}

ArtworkFile::ArtworkFile(QString folder) : m_folder(std::move(folder))
{
    removeLeftovers();
}

ArtworkFile::~ArtworkFile()
{
    remove();
    QDir().rmdir(m_folder); // fails if another process has a picture there
}

void ArtworkFile::setImage(const QImage &image)
{
    const QString old = std::exchange(m_path, QString());
    if (!image.isNull() && QDir().mkpath(m_folder)) {
        QImage small = image;
        if (image.width() > maximumSide || image.height() > maximumSide)
            small = image.scaled(maximumSide, maximumSide, Qt::KeepAspectRatio,
                                 Qt::SmoothTransformation);
        const QString path =
            m_folder + u'/' + fileName(QCoreApplication::applicationPid(), ++m_number);
        QSaveFile file(path);
        if (file.open(QIODevice::WriteOnly) && small.save(&file, "PNG") && file.commit())
            m_path = path;
    }
    if (!old.isEmpty())
        QFile::remove(old);
}

void ArtworkFile::remove()
{
    if (!m_path.isEmpty())
        QFile::remove(std::exchange(m_path, QString()));
}

void ArtworkFile::removeLeftovers() const
{
    const QStringList names = QDir(m_folder).entryList({u"cover-*.png*"_s}, QDir::Files);
    for (const QString &name : names) {
        const qint64 process = name.section(u'-', 1, 1).toLongLong();
        if (process > 0 && !QFileInfo::exists(u"/proc/%1"_s.arg(process)))
            QFile::remove(m_folder + u'/' + name);
    }
}

} // namespace lyrabox
