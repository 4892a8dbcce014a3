#include "app/controls/LB_PlayButtonCell.h"

using lyrabox::NamedImage;
using namespace Qt::Literals::StringLiterals;

void LB_PlayButtonCell::drawImage(QPainter &painter, const QRect &rect)
{
    if (state() != 0 && state() != 1)
        return;
    const NamedImage &shown = state() == 1 ? alternateImage() : image();
    drawCentered(painter, isHighlighted() ? NamedImage(shown.name() + u"Alt"_s) : shown, rect);
}
