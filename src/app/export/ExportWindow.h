#pragma once

#include "app/export/ExportForm.h"
#include "app/export/ExportSource.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>

#include <optional>
#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace lyrabox {

class ElidedLabel;
class ExportQueue;
class ExportRows;

/// Exports the song, its loops, or a ladder as files. Shows what an export will be, and the exports
/// that run. Follows the player while it is shown. It is not modal; the exports go on when it is
/// closed. Main thread.
class ExportWindow : public QDialog {
    Q_OBJECT

public:
    /// The program's player and record, and the formats that can be written here.
    struct Outlets {
        LB_AudioController *audio;
        const SongPractice *practice;
        const SongSound *sound;
        const Metronome *metronome;
        ExportQueue *queue;
        std::vector<SongFormat> formats;
    };
    /// All must outlive the window.
    ExportWindow(const Outlets &outlets, QWidget *parent);

    ExportForm *form() const { return m_form; }

    /// The folder of the new files.
    const QString &folder() const { return m_folder; }
    /// Remembers it, too.
    void setFolder(const QString &folder);

    /// Adds what is chosen to the queue. Files that exist are asked for first, without blocking.
    void exportChosen();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addFolderAndName();
    QWidget *makeQueue();
    QWidget *makeButtons();
    void follow(const Outlets &outlets);
    void update();
    void chooseFirst();
    ExportForm::Offer offerOf(const std::vector<ExportSource::Loop> &loops) const;
    std::vector<exportPlan::Part> chosenParts() const;
    std::vector<ExportRequest> chosenRequests() const;
    void showName();
    void showEstimate();
    void showMessage(const QString &message);
    void showFolder();
    void chooseFolder();
    std::vector<ExportRequest> namedRequests() const;
    bool canExport(const std::vector<ExportRequest> &requests) const;
    void askToReplace(std::vector<ExportRequest> requests, const QStringList &existing);
    void begin(std::vector<ExportRequest> requests);
    void cancelSelected();
    void shareColumns();
    void showQueue();
    void selectRunning();

    ExportSource m_source;
    ExportQueue *m_queue;
    std::vector<ExportSource::Loop> m_loops; ///< as they were last seen
    QString m_folder;
    bool m_nameIsTyped = false;
    QTimer m_updating; ///< many changes in a row are looked at once
    QTimer m_progress; ///< while it is shown and an export runs

    ExportForm *m_form;
    QPushButton *m_chooseFolder;
    ElidedLabel *m_folderText;
    QLineEdit *m_name;
    QLabel *m_estimate;
    QLabel *m_message;
    ExportRows *m_rows;
    QTableView *m_list;
    QPushButton *m_cancel;
    QPushButton *m_export;
};

} // namespace lyrabox
