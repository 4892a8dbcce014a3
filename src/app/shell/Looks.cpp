#include "app/shell/Looks.h"

#include "platform/ui/ButtonMatrix.h"
#include "platform/ui/StateButton.h"
#include "platform/ui/StepTags.h"
#include "platform/ui/Theme.h"

#include <QLabel>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::looks {

namespace {
constexpr double labelSize = 11.0; // points
} // namespace

void addSteps(ButtonMatrix *matrix, const QString &downText, const QString &downName,
              const QString &resetName, const QString &upText, const QString &upName)
{
    matrix->addCell(StepDown, downText, downName);
    matrix->addCell(StepReset, {}, resetName, NamedImage(u"ResetButton"_s));
    matrix->addCell(StepUp, upText, upName);
}

void setImages(StateButton *button, const QString &image, const QString &alternate)
{
    button->setImage(NamedImage(image));
    if (!alternate.isEmpty())
        button->setAlternateImage(NamedImage(alternate));
}

void makeSecondary(QLabel *label)
{
    label->setFont(uiFont(labelSize));
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, Theme::secondaryText);
    label->setPalette(palette);
}

void fill(QWidget *widget, const QColor &color)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, color);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

} // namespace lyrabox::looks
