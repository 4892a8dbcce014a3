#include "app/shell/ProgramIcon.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

using namespace Qt::Literals::StringLiterals;

/// The drawings are in a static library. Without this reference the linker would drop them.
static void linkIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace lyrabox {

QIcon programIcon()
{
    linkIcons();
    QSvgRenderer full(u":/icons/lyrabox.svg"_s);
    QSvgRenderer small(u":/icons/lyrabox-small.svg"_s); // less detail, aligned to whole pixels
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        (size < 32 ? small : full).render(&painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

} // namespace lyrabox
