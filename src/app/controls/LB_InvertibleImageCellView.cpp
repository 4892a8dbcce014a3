#include "app/controls/LB_InvertibleImageCellView.h"

#include "platform/ui/NamedImage.h"

#include <QPainter>

using lyrabox::NamedImage;
using namespace Qt::Literals::StringLiterals;

QString LB_InvertibleImageCellView::imageNameForBackgroundStyle(const QString &name, bool dark)
{
    QString plain = name;
    plain.remove(u"Light"_s);
    return dark ? plain + u"Light"_s : plain;
}

void LB_InvertibleImageCellView::drawInterior(QPainter &painter, const QStyleOptionViewItem &option,
                                              const QModelIndex &index, bool emphasized) const
{
    const QString name = index.data(imageNameRole).toString();
    if (name.isEmpty())
        return;
    const NamedImage image(imageNameForBackgroundStyle(name, emphasized));
    if (image.isNull())
        return;
    QRect target(QPoint(), image.size());
    target.moveCenter(option.rect.center());
    image.draw(painter, target.topLeft());
}
