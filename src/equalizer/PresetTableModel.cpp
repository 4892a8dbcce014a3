#include "equalizer/PresetTableModel.h"

namespace lyrabox {

void PresetTableModel::setArrangedObjects(EqPresetList presets)
{
    beginResetModel();
    m_arranged = std::move(presets);
    endResetModel();
}

int PresetTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_arranged.size());
}

int PresetTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 1;
}

QVariant PresetTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    return m_arranged.at(static_cast<std::size_t>(index.row()))->name;
}

} // namespace lyrabox
