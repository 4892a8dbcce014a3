#pragma once

#include <QString>

namespace lyrabox {

/// A menu's text as it is named elsewhere: "Keep Loop" of "&Keep Loop". Where the letter stands
/// behind the text, as in Japanese, it goes with its brackets: "Stand View" of "Stand View (&Q)".
QString withoutMnemonic(const QString &menuText);

} // namespace lyrabox
