#pragma once

#include "platform/updates/SUUpdater.h"

class QWidget;

namespace lyrabox {

/// A presenter that shows the updater's results in non-blocking dialogs over `parent`. `openURL`
/// opens the release's web page when the user asks for it. `parent` must outlive the presenter.
/// Main thread.
SUUpdater::Presenter updateDialogs(QWidget *parent, std::function<bool(const QUrl &)> openURL);

} // namespace lyrabox
