#include "app/pedals/PedalsWindow.h"

#include "app/controls/LB_TableHeaderCell.h"
#include "app/controls/LB_TableRowView.h"
#include "app/pedals/AssignmentRows.h"
#include "platform/ui/ElidedLabel.h"
#include "platform/ui/ListEndKeys.h"
#include "platform/ui/MenuText.h"
#include "platform/ui/SearchField.h"
#include "platform/ui/SegmentedControl.h"
#include "platform/ui/Theme.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>

#include <utility>

namespace lyrabox {

namespace {

constexpr int margin = 14;
constexpr QSize usualSize{820, 560};
constexpr double nameSize = 17.0;
constexpr double smallSize = 11.0;
constexpr int messageLines = 2;

void makeQuiet(QLabel *label)
{
    QPalette colors = label->palette();
    colors.setColor(QPalette::WindowText, Theme::secondaryText);
    label->setPalette(colors);
}

} // namespace

PedalsWindow::PedalsWindow(PedalAssignments *pedals, QWidget *parent)
    : QDialog(parent),
      m_pedals(pedals),
      m_rows(new AssignmentRows(pedals, this)),
      m_shown(new QSortFilterProxyModel(this)),
      m_search(new SearchField(this)),
      m_sets(new QPushButton(tr("Ready-Made Sets"), this)),
      m_table(new QTableView(this)),
      m_name(new ElidedLabel(this)),
      m_message(new QLabel(this)),
      m_gesture(new SegmentedControl(this)),
      m_form(new QComboBox(this)),
      m_learn(new QPushButton(this)),
      m_take(new QPushButton(tr("Use It Here"), this)),
      m_remove(new QPushButton(tr("Remove"), this)),
      m_removeMenu(new QMenu(this)),
      m_devices(new ElidedLabel(this)),
      m_learner(pedals, this)
{
    setObjectName(QStringLiteral("pedalsWindow"));
    setWindowTitle(tr("Pedals and Keys"));
    setUpTable();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(margin);
    column->addWidget(makeTop());
    column->addWidget(m_table, 1);
    column->addWidget(makeControls());
    column->addWidget(makeButtons());
    resize(usualSize);

    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
        m_learner.cancel();
        say({});
    });
    connect(&m_learner, &Learner::changed, this, [this] { say({}); });
    connect(pedals, &PedalAssignments::changed, this, &PedalsWindow::showState);
    connect(pedals->player(), &PedalPlayer::portsChanged, this, &PedalsWindow::showState);
    m_table->selectRow(0);
    m_table->setFocus();
    showState();
}

PedalsWindow::~PedalsWindow() = default;

void PedalsWindow::setUpTable()
{
    m_shown->setSourceModel(m_rows);
    m_shown->setFilterKeyColumn(-1);
    m_shown->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_table->setAccessibleName(tr("Commands"));
    m_table->setHorizontalHeader(new LB_TableHeaderCell(Qt::Horizontal, m_table));
    LB_TableRowView::install(m_table, LB_TableRowView::Separators::Hairline);
    m_table->setModel(m_shown);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_table->setFrameShape(QFrame::StyledPanel);
    QHeaderView *header = m_table->horizontalHeader();
    header->setSectionsClickable(false);
    header->setHighlightSections(false);
    header->setSectionResizeMode(QHeaderView::Stretch);
    m_table->installEventFilter(this);
    new ListEndKeys(m_table);
}

QWidget *PedalsWindow::makeTop()
{
    auto *top = new QWidget(this);
    auto *row = new QHBoxLayout(top);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::grid);
    m_search->setPlaceholderText(tr("Search"));
    m_search->setAccessibleName(tr("Search commands"));
    m_sets->setAutoDefault(false);
    fillSets();
    row->addWidget(m_search, 1);
    row->addWidget(m_sets);
    connect(m_search, &QLineEdit::textChanged, this, &PedalsWindow::filter);
    connect(m_search, &SearchField::canceled, m_search, &QLineEdit::clear);
    return top;
}

void PedalsWindow::fillSets()
{
    auto *menu = new QMenu(m_sets);
    const std::pair<PedalSet, QString> sets[] = {
        {PedalSet::TwoSwitches, tr("&Two Switches (Controllers 64 and 67)")},
        {PedalSet::TwoAndExpression, tr("Two Switches and an &Expression Pedal")},
        {PedalSet::PageKeys, tr("&Page Turner: Page Up and Page Down")},
        {PedalSet::ArrowKeys, tr("Page Turner: &Arrow Keys")},
    };
    for (const auto &[set, name] : sets) {
        QAction *action = menu->addAction(name);
        connect(action, &QAction::triggered, this,
                [this, set = set, name = withoutMnemonic(name)] { useSet(set, name); });
    }
    m_sets->setMenu(menu);
}

QWidget *PedalsWindow::makeControls()
{
    auto *controls = new QWidget(this);
    auto *column = new QVBoxLayout(controls);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Theme::grid);
    m_name->setFont(uiFont(nameSize));
    m_name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_gesture->setSegments({tr("Tap"), tr("Double Tap"), tr("Hold")});
    m_gesture->setAccessibleName(tr("Gesture of a pedal"));
    m_gesture->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_form->setAccessibleName(tr("What the pedal or knob sends"));
    m_form->addItems({tr("Positions (a pedal)"), tr("Steps: 1 and 127"), tr("Steps: 65 and 63"),
                      tr("Steps: 1 and 65")});
    m_message->setWordWrap(true);
    m_message->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_message->setMinimumHeight(messageLines * m_message->fontMetrics().lineSpacing());
    m_remove->setMenu(m_removeMenu);
    for (QPushButton *button : {m_learn, m_take, m_remove})
        button->setAutoDefault(false);
    auto *row = new QHBoxLayout;
    row->setSpacing(Theme::grid);
    row->addWidget(m_gesture);
    row->addWidget(m_form);
    row->addStretch(1);
    row->addWidget(m_take);
    row->addWidget(m_learn);
    row->addWidget(m_remove);
    column->addWidget(m_name);
    column->addLayout(row);
    column->addWidget(m_message);
    connect(m_learn, &QPushButton::clicked, this, &PedalsWindow::learn);
    connect(m_take, &QPushButton::clicked, &m_learner, &Learner::take);
    connect(m_removeMenu, &QMenu::aboutToShow, this, &PedalsWindow::fillRemove);
    connect(m_gesture, &SegmentedControl::pressed, &m_learner, &Learner::cancel);
    return controls;
}

QWidget *PedalsWindow::makeButtons()
{
    auto *buttons = new QWidget(this);
    auto *row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::grid);
    m_devices->setFont(uiFont(smallSize));
    m_devices->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    makeQuiet(m_devices);
    auto *done = new QPushButton(tr("Close"), this);
    done->setAutoDefault(false);
    row->addWidget(m_devices, 1);
    row->addWidget(done);
    connect(done, &QPushButton::clicked, this, &QDialog::close);
    QWidget *before = m_search;
    for (QWidget *next : std::initializer_list<QWidget *>{m_sets, m_table, m_gesture, m_form,
                                                          m_take, m_learn, m_remove, done}) {
        setTabOrder(before, next);
        before = next;
    }
    return buttons;
}

QString PedalsWindow::selectedId() const
{
    return m_rows->id(m_shown->mapToSource(m_table->currentIndex()).row());
}

bool PedalsWindow::selectedIsValue() const
{
    return m_rows->isValue(m_shown->mapToSource(m_table->currentIndex()).row());
}

void PedalsWindow::filter()
{
    m_shown->setFilterFixedString(m_search->text().trimmed());
    if (!m_table->currentIndex().isValid() && m_shown->rowCount() > 0)
        m_table->selectRow(0);
    m_table->scrollTo(m_table->currentIndex());
    showState();
}

void PedalsWindow::learn()
{
    if (m_learner.state() != Learner::State::Idle) {
        m_learner.cancel();
        return;
    }
    m_learner.begin({.id = selectedId(),
                     .isValue = selectedIsValue(),
                     .gesture = static_cast<PedalGesture>(m_gesture->selectedSegment()),
                     .form = static_cast<PedalDial::Form>(m_form->currentIndex())});
}

void PedalsWindow::fillRemove()
{
    m_removeMenu->clear();
    for (const Assignment &assignment : assignmentsOf(*m_pedals, selectedId())) {
        const QString name = assignmentText(assignment).replace(u'&', QStringLiteral("&&"));
        connect(m_removeMenu->addAction(name), &QAction::triggered, this,
                [this, assignment] { remove(assignment); });
    }
}

void PedalsWindow::remove(const Assignment &assignment)
{
    PedalMap map = m_pedals->map();
    removeAssignment(map, m_pedals->keys().builtIn(), assignment);
    const bool isWritten = m_pedals->change(map);
    say(isWritten ? tr("%1 is no longer “%2”.")
                        .arg(assignmentText(assignment), m_pedals->nameOf(selectedId()))
                  : QString());
}

void PedalsWindow::useSet(PedalSet set, const QString &name)
{
    m_learner.cancel();
    PedalMap map = m_pedals->map();
    const bool fits = addSet(map, set, m_pedals->keys().builtIn());
    const bool isWritten = fits && m_pedals->change(map);
    say(isWritten ? tr("Added: %1. Everything else stays as it was.").arg(name) : QString());
}

void PedalsWindow::say(const QString &text)
{
    m_said = text;
    showState();
}

QString PedalsWindow::stateText() const
{
    switch (m_pedals->problem()) {
    case PedalFile::Problem::NewerVersion:
        return tr("The assignments were made by a later version of Lyrabox. They cannot be changed "
                  "here.");
    case PedalFile::Problem::NotWritten:
        return tr("The assignments could not be written. They hold until Lyrabox ends.");
    case PedalFile::Problem::Unreadable:
        return tr("The file of assignments could not be read. It is kept under another name when "
                  "you change something.");
    case PedalFile::Problem::PartlyRead:
        return tr("Some assignments in the file were not understood. The file is kept under "
                  "another name when you change something.");
    case PedalFile::Problem::None:
        break;
    }
    return {};
}

void PedalsWindow::showState()
{
    const QString id = selectedId();
    const bool isValue = selectedIsValue();
    const auto state = m_learner.state();
    const bool canChange = m_pedals->problem() != PedalFile::Problem::NewerVersion;
    m_name->setText(id.isEmpty() ? QString() : m_pedals->nameOf(id));
    m_gesture->setVisible(!isValue);
    m_form->setVisible(isValue);
    const bool isKnown = isValue || m_pedals->keys().command(id) != nullptr;
    m_learn->setEnabled(isKnown && canChange);
    m_learn->setText(state == Learner::State::Idle ? tr("Learn") : tr("Cancel"));
    if (state == Learner::State::Asking && !m_take->isVisible()) {
        m_take->show();
        m_take->setFocus();
    } else if (state != Learner::State::Asking && m_take->isVisible()) {
        if (m_take->hasFocus())
            m_table->setFocus();
        m_take->hide();
    }
    m_take->setVisible(state == Learner::State::Asking);
    m_remove->setEnabled(canChange && state == Learner::State::Idle &&
                         !assignmentsOf(*m_pedals, id).empty());
    QString message = m_said.isEmpty() ? m_learner.message() : m_said;
    if (message.isEmpty())
        message = stateText();
    m_message->setText(message);
    m_message->setAccessibleName(message);

    QStringList names;
    for (const MidiPort &port : m_pedals->player()->ports())
        names.append(port.name);
    const bool isOpen = m_pedals->player()->isOpen();
    m_devices->setText(!names.isEmpty() ? tr("Plugged in: %1").arg(names.join(QStringLiteral(", ")))
                       : isOpen         ? tr("No MIDI device is plugged in.")
                                : tr("MIDI devices are looked for while you learn, and while one "
                                     "is assigned."));
}

void PedalsWindow::hideEvent(QHideEvent *event)
{
    m_learner.cancel();
    say({});
    QDialog::hideEvent(event);
}

void PedalsWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && m_learner.state() != Learner::State::Idle) {
        m_learner.cancel();
        return;
    }
    QDialog::keyPressEvent(event);
}

/// In the list, Return learns, and Delete opens the menu of what can be removed. Keys that move in
/// it are no commands here, whatever they are assigned to.
bool PedalsWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_table && event->type() == QEvent::ShortcutOverride) {
        const auto &key = static_cast<QKeyEvent &>(*event);
        const bool moves = isNeededInMenus(keyOf(key)) && key.key() != Qt::Key_Space &&
                           key.key() != Qt::Key_Escape;
        if (!keyOf(key).isEmpty() && (moves || key.key() == Qt::Key_Delete)) {
            event->accept();
            return true;
        }
    } else if (watched == m_table && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            m_learn->click();
            return true;
        }
        if (key == Qt::Key_Delete && m_remove->isEnabled()) {
            // The button's own way would not return before the menu closes.
            m_removeMenu->popup(m_remove->mapToGlobal(QPoint(0, m_remove->height())));
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace lyrabox
