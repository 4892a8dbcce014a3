#pragma once

#include "settings/EqPreset.h"

#include <QAbstractTableModel>

namespace lyrabox {

/// The model of the preset table. Its rows are the presets in the order in which
/// setArrangedObjects() gets them, its one column holds the names. Main thread.
class PresetTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    const EqPresetList &arrangedObjects() const { return m_arranged; }
    void setArrangedObjects(EqPresetList presets);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    EqPresetList m_arranged;
};

} // namespace lyrabox
