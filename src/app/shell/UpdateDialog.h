#pragma once

#include "platform/updates/SUUpdater.h"

class QWidget;

namespace lyrabox {

/// Shows what the updater finds in dialogs over `parent`. The release's page is opened by `openURL`
/// when the user says so.
SUUpdater::Presenter updateDialogs(QWidget *parent, std::function<bool(const QUrl &)> openURL);

} // namespace lyrabox
