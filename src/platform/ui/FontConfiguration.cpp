#include "platform/ui/FontConfiguration.h"

#include <fontconfig/fontconfig.h>

namespace lyrabox {

void readFontConfiguration()
{
    FcInit();
}

} // namespace lyrabox
