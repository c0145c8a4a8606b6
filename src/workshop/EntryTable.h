#pragma once

#include <QAbstractTableModel>

namespace velmarin {

class DictionaryCorrector;

/// The entries of a dictionary and the pages that they open, without the last line, which is never found.
class EntryTable : public QAbstractTableModel {
    Q_OBJECT
  public:
    EntryTable(const DictionaryCorrector& corrector, QObject* parent)
        : QAbstractTableModel(parent), corrector_(corrector) {}

    /// To be called when lines were added, removed or changed.
    void reread();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const DictionaryCorrector& corrector_;
};

} // namespace velmarin
