#include "app/export/ExportWindow.h"

#include "app/controls/LB_TableHeaderCell.h"
#include "app/controls/LB_TableRowView.h"
#include "app/export/ExportQueue.h"
#include "app/export/ExportRows.h"
#include "app/export/ExportSettings.h"
#include "app/export/ExportText.h"
#include "app/practice/Metronome.h"
#include "app/practice/SongPractice.h"
#include "app/practice/SongSound.h"
#include "engine/LB_AudioController.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/ui/ElidedLabel.h"
#include "platform/ui/ListEndKeys.h"
#include "platform/ui/Theme.h"

#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace lyrabox {

namespace {

constexpr int margin = 14;
constexpr int usualWidth = 520;
constexpr int leastListHeight = 56;
constexpr int usualListHeight = 110;
constexpr int leastStateWidth = 80;
constexpr int titleBarHeight = 40;
constexpr auto progressPeriod = 200ms;

void makeQuiet(QLabel *label)
{
    QPalette colors = label->palette();
    colors.setColor(QPalette::WindowText, Theme::secondaryText);
    label->setPalette(colors);
}

/// Return would otherwise press the button that has the keyboard.
QPushButton *makeButton(const QString &text, QWidget *parent)
{
    auto *button = new QPushButton(text, parent);
    button->setAutoDefault(false);
    return button;
}

} // namespace

ExportWindow::ExportWindow(const Outlets &outlets, QWidget *parent)
    : QDialog(parent),
      m_source(outlets.audio, outlets.practice, outlets.sound, outlets.metronome),
      m_queue(outlets.queue),
      m_folder(exportSettings::folder()),
      m_form(new ExportForm(this)),
      m_chooseFolder(makeButton(tr("Choose…"), this)),
      m_folderText(new ElidedLabel(this)),
      m_name(new QLineEdit(this)),
      m_estimate(new QLabel(this)),
      m_message(new QLabel(this)),
      m_rows(new ExportRows(outlets.queue, this)),
      m_list(new QTableView(this)),
      m_cancel(makeButton(tr("Cancel Export"), this)),
      m_export(makeButton(tr("Export"), this))
{
    setObjectName(QStringLiteral("exportWindow"));
    setWindowTitle(tr("Export"));
    m_form->setFormats(outlets.formats, exportSettings::format());
    addFolderAndName();
    for (QLabel *label : {m_estimate, m_message}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    makeQuiet(m_estimate);
    m_message->setObjectName(QStringLiteral("exportMessage"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(Theme::grid);
    column->addWidget(m_form);
    column->addWidget(m_estimate);
    column->addWidget(m_message);
    column->addWidget(makeQueue(), 1);
    column->addWidget(makeButtons());
    m_list->hide();
    m_cancel->hide();
    m_updating.setSingleShot(true);
    m_updating.setInterval(0);
    connect(&m_updating, &QTimer::timeout, this, &ExportWindow::update);
    m_progress.setInterval(progressPeriod);
    connect(&m_progress, &QTimer::timeout, m_rows, &ExportRows::showProgress);
    follow(outlets);
    update();
    chooseFirst();
    showFolder();
    showMessage({});
    resize(usualWidth, sizeHint().height());
    showQueue();
}

void ExportWindow::follow(const Outlets &outlets)
{
    const auto updateSoon = [this] {
        if (isVisible())
            m_updating.start();
    };
    connect(outlets.audio, &LB_AudioController::loopChanged, this, updateSoon);
    connect(outlets.audio, &LB_AudioController::speedOrPitchChanged, this, updateSoon);
    connect(outlets.practice, &SongPractice::calledUpChanged, this, updateSoon);
    connect(&outlets.practice->store(), &PracticeStore::recordChanged, this, updateSoon);
    connect(outlets.sound, &SongSound::changed, this, updateSoon);
    connect(outlets.metronome, &Metronome::changed, this, updateSoon);
    NotificationCenter::defaultCenter().addObserver(this, notification::currentTrackChanged,
                                                    updateSoon);
    connect(m_form, &ExportForm::changed, this, [this] {
        showMessage({});
        update();
    });
    connect(m_form, &ExportForm::subjectChanged, this, [this] {
        m_nameIsTyped = false;
        showMessage({});
        update();
    });
    connect(m_queue, &ExportQueue::changed, this, &ExportWindow::showQueue);
}

void ExportWindow::addFolderAndName()
{
    auto *folder = new QWidget(this);
    auto *row = new QHBoxLayout(folder);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::grid);
    m_folderText->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    row->addWidget(m_folderText, 1);
    row->addWidget(m_chooseFolder);
    m_form->addRow(tr("Folder"), folder);
    m_name->setFixedHeight(Theme::controlHeight);
    m_form->addRow(tr("Name"), m_name);
    connect(m_chooseFolder, &QPushButton::clicked, this, &ExportWindow::chooseFolder);
    connect(m_name, &QLineEdit::textEdited, this, [this] {
        m_nameIsTyped = true;
        showMessage({});
    });
}

QWidget *ExportWindow::makeQueue()
{
    m_list->setAccessibleName(tr("Exports"));
    m_list->setHorizontalHeader(new LB_TableHeaderCell(Qt::Horizontal, m_list));
    LB_TableRowView::install(m_list, LB_TableRowView::Separators::Hairline);
    m_list->setModel(m_rows);
    m_list->setFrameShape(QFrame::StyledPanel);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->horizontalHeader()->hide();
    m_list->horizontalHeader()->setMinimumSectionSize(0);
    m_list->horizontalHeader()->setSectionResizeMode(ExportRows::Name, QHeaderView::Stretch);
    m_list->horizontalHeader()->setSectionResizeMode(ExportRows::State, QHeaderView::Fixed);
    m_list->setMinimumHeight(leastListHeight);
    m_list->installEventFilter(this);
    new ListEndKeys(m_list);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &ExportWindow::showQueue);
    return m_list;
}

QWidget *ExportWindow::makeButtons()
{
    auto *buttons = new QWidget(this);
    auto *row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::grid);
    auto *close = makeButton(tr("Close"), this);
    m_export->setDefault(true);
    row->addWidget(m_cancel);
    row->addStretch(1);
    row->addWidget(close);
    row->addWidget(m_export);
    setTabOrder(m_list, m_cancel);
    setTabOrder(m_cancel, close);
    setTabOrder(close, m_export);
    connect(m_cancel, &QPushButton::clicked, this, &ExportWindow::cancelSelected);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    connect(m_export, &QPushButton::clicked, this, &ExportWindow::exportChosen);
    return buttons;
}

void ExportWindow::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous()) {
        chooseFirst();
        m_form->setFocus();
    }
    showQueue();
}

void ExportWindow::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    if (event->spontaneous())
        return;
    m_progress.stop();
    m_queue->removeEnded();
    m_nameIsTyped = false;
    showMessage({});
}

void ExportWindow::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    // The equalizer may have been changed meanwhile; nothing tells of that.
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && isVisible())
        update();
}

bool ExportWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_list && event->type() == QEvent::Resize)
        shareColumns();
    if (watched == m_list && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Delete)
            cancelSelected();
        // Return in the list begins no export.
        if (key->key() == Qt::Key_Delete || key->key() == Qt::Key_Return ||
            key->key() == Qt::Key_Enter)
            return true;
    }
    return QDialog::eventFilter(watched, event);
}

void ExportWindow::showFolder()
{
    const QString home = QDir::homePath();
    QString text = m_folder;
    if (text == home || text.startsWith(home + u'/'))
        text.replace(0, home.size(), u'~');
    m_folderText->setText(text);
    m_chooseFolder->setAccessibleName(tr("Choose the folder, now %1").arg(m_folder));
}

void ExportWindow::setFolder(const QString &folder)
{
    m_folder = folder;
    exportSettings::setFolder(folder);
    showFolder();
    showMessage({});
}

void ExportWindow::chooseFolder()
{
    auto *dialog = new QFileDialog(this, tr("Folder for Exports"), m_folder);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, this, &ExportWindow::setFolder);
    dialog->open();
}

void ExportWindow::showMessage(const QString &message)
{
    m_message->setText(message);
    m_message->setVisible(!message.isEmpty());
}

void ExportWindow::cancelSelected()
{
    const int row = m_list->currentIndex().row();
    if (m_rows->canCancel(row))
        m_queue->cancel(m_rows->id(row));
}

/// Selects the export that runs, unless the user is in the list.
void ExportWindow::selectRunning()
{
    if (m_list->hasFocus() || m_rows->canCancel(m_list->currentIndex().row()))
        return;
    for (int row = 0; row < m_rows->rowCount(); ++row) {
        if (m_rows->canCancel(row)) {
            m_list->selectRow(row);
            return;
        }
    }
}

/// Progress needs little room. Why an export failed may need more than there is.
void ExportWindow::shareColumns()
{
    const QAbstractItemView *view = m_list; // there it is public
    const int needed = view->sizeHintForColumn(ExportRows::State);
    const int most = m_list->viewport()->width() / 2;
    m_list->setColumnWidth(ExportRows::State, std::min(std::max(needed, leastStateWidth), most));
}

void ExportWindow::showQueue()
{
    const bool isEmpty = m_queue->entries().empty();
    if (m_list->isHidden() != isEmpty) {
        m_list->setVisible(!isEmpty);
        m_cancel->setVisible(!isEmpty);
        const int room = usualListHeight + Theme::grid;
        const int mostHeight = screen()->availableGeometry().height() - titleBarHeight;
        resize(width(), isEmpty ? height() - room : std::min(height() + room, mostHeight));
    }
    shareColumns();
    selectRunning();
    const int row = m_list->currentIndex().row();
    m_cancel->setEnabled(m_rows->canCancel(row));
    showMessage(m_rows->problem(row));
    if (isVisible() && m_queue->isBusy())
        m_progress.start();
    else
        m_progress.stop();
}

} // namespace lyrabox
