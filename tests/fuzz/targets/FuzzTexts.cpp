#include "fuzz/targets/FuzzTargets.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/MusicLibrary.h"
#include "platform/updates/Appcast.h"

#include <QUrl>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::fuzz {

void appcast(Bytes bytes)
{
    const QByteArray feed = byteArray(bytes);
    const QString text = plainTextFromHtml(QString::fromUtf8(feed));
    require(text == text.trimmed(), "notes have no blanks around them");
    const auto items = parseAppcast(feed);
    if (!items)
        return;
    for (const AppcastItem &item : *items) {
        require(!item.version.isEmpty() && item.version.size() <= 100, "versions are short");
        require(item.page.isEmpty() || item.page.scheme() == u"https", "pages are safe");
    }
    for (std::size_t i = 1; i < items->size() && i < 8; ++i) {
        const QString &a = (*items)[i - 1].version;
        const QString &b = (*items)[i].version;
        require(compareVersions(a, a) == 0, "a version is as new as itself");
        require((compareVersions(a, b) < 0) == (compareVersions(b, a) > 0),
                "the newer one is newer either way");
    }
    if (const auto update = newestUpdate(*items, u"1.0"_s))
        require(compareVersions(update->version, u"1.0"_s) > 0, "an update is newer");
}

void fileUrl(Bytes bytes)
{
    const QString text = QString::fromUtf8(byteArray(bytes));
    const QUrl url = locationURL(text);
    if (url.isLocalFile()) {
        const QString path = url.toLocalFile();
        const QString again = QUrl::fromLocalFile(path).toLocalFile();
        require(QUrl::fromLocalFile(again).toLocalFile() == again, "a path survives its URL");
    }
    require(!files::inodeText(url).isEmpty(), "there is always a text for the inode");
    files::inodeText(text);
    files::isReadable(text);
    files::resolvingSymbolicLinks(text);
    files::isPackageName(text);
}

} // namespace lyrabox::fuzz
