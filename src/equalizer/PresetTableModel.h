#pragma once

#include "settings/EqPreset.h"

#include <QAbstractTableModel>

namespace lyrabox {

/// A table of the presets in the order that setArrangedObjects() is given. Its one column holds the
/// names.
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
