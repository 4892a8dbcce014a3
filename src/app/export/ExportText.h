#pragma once

#include "app/export/ExportPlan.h"
#include "platform/audio/SongWriter.h"
#include "platform/foundation/Status.h"

#include <QString>

/// The words for exports. Main thread.
namespace lyrabox::exportText {

/// The name of a format: "WAV, 24 bits".
QString format(SongFormat format);

/// Why an export failed, as a sentence. Empty for noError.
QString problem(Status status);

/// "3:12 · about 6 MB · ready in about 20 s".
QString estimate(const exportPlan::Estimate &estimate);

} // namespace lyrabox::exportText
