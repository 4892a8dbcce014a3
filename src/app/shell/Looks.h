#pragma once

#include <QString>

class QColor;
class QLabel;
class QWidget;

namespace lyrabox {

class ButtonMatrix;
class StateButton;

/// How the rooms style their widgets. Main thread.
namespace looks {

/// Gives `matrix` its three cells (StepTags.h). The cell in the middle shows the reset image. The
/// names are tool tips and names for assistive technologies.
void addSteps(ButtonMatrix *matrix, const QString &downText, const QString &downName,
              const QString &resetName, const QString &upText, const QString &upName);

/// Sets the image and, unless it is empty, the alternate image by their names.
void setImages(StateButton *button, const QString &image, const QString &alternate = {});

/// Gives the label the smaller font and the gray colour of secondary texts.
void makeSecondary(QLabel *label);

/// Fills the widget's background.
void fill(QWidget *widget, const QColor &color);

} // namespace looks
} // namespace lyrabox
