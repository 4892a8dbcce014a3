// What is chosen in the export window, and how it becomes files.

#include "app/export/ExportQueue.h"
#include "app/export/ExportSettings.h"
#include "app/export/ExportText.h"
#include "app/export/ExportWindow.h"
#include "platform/foundation/DiskPatience.h"
#include "platform/ui/ElidedLabel.h"
#include "practice/SpeedTrainer.h"
#include "practice/TrainerTempo.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace lyrabox {

namespace {

/// What the disk says of a folder.
struct FolderAnswer {
    bool isThere = false;
    QStringList existing = {}; ///< of the files that were asked for
};

/// None if the disk does not answer.
std::optional<FolderAnswer> askFolder(const QString &folder, const QStringList &files)
{
    return files::askPatiently<FolderAnswer>(folder, [folder, files] {
        FolderAnswer answer{.isThere = QFileInfo(folder).isDir()};
        for (const QString &file : files) {
            const QFileInfo info(file);
            if (info.exists() || info.isSymLink())
                answer.existing.append(file);
        }
        return answer;
    });
}

bool hasLadder(const exportPlan::Part &part, const BeatGrid &beats)
{
    return part.trainer.unit == TempoUnit::Percent ||
           tempoBetween(beats, part.range.start, part.range.end) > 0.0;
}

QString ladderText(const exportPlan::Part &part, const BeatGrid &beats)
{
    const std::vector<int> speeds =
        ladderSpeeds(part.trainer, tempoBetween(beats, part.range.start, part.range.end));
    return speeds.size() > 1 ? ExportWindow::tr("%1 to %2 %").arg(speeds.front()).arg(speeds.back())
                             : ExportWindow::tr("%1 %").arg(speeds.front());
}

} // namespace

/// What a user most likely wants: the loop that sounds, else the song.
void ExportWindow::chooseFirst()
{
    m_form->setWhat(m_loops.empty() ? ExportForm::What::Song : ExportForm::What::Loop);
    update();
}

void ExportWindow::update()
{
    m_loops = m_source.loops();
    m_form->setOffer(offerOf(m_loops));
    showName();
    showEstimate();
}

ExportForm::Offer ExportWindow::offerOf(const std::vector<ExportSource::Loop> &loops) const
{
    ExportForm::Offer offer;
    const bool isEvery = m_form->what() == ExportForm::What::EveryLoop;
    bool hasOwnSpeed = false;
    for (const ExportSource::Loop &loop : loops) {
        if (loop.sounds)
            offer.present = static_cast<int>(offer.loops.size());
        offer.loops.append(loop.part.name);
        hasOwnSpeed = hasOwnSpeed || loop.part.speed || loop.part.pitch;
    }
    const exportPlan::Heard heard = m_source.heard(std::nullopt);
    offer.hasSpeedOrPitch = heard.speed != 100.0 || heard.pitch != 0.0 || hasOwnSpeed;
    offer.hasEqualizer =
        std::ranges::any_of(heard.levels, [](float level) { return level != 0.0F; });
    offer.hasChannels = !heard.channels.isNeutral();
    offer.hasClick = heard.clicks != nullptr || heard.countIn;
    const std::vector<exportPlan::Part> parts = chosenParts();
    const BeatGrid beats =
        parts.size() == 1 && !isEvery ? m_source.heard(parts.front().range).beats : heard.beats;
    const bool haveLadders = !parts.empty() && std::ranges::all_of(parts, [&](const auto &part) {
        return hasLadder(part, beats);
    });
    if (haveLadders)
        offer.ladder = isEvery ? tr("each its own") : ladderText(parts.front(), beats);
    return offer;
}

std::vector<exportPlan::Part> ExportWindow::chosenParts() const
{
    std::vector<exportPlan::Part> parts;
    switch (m_form->what()) {
    case ExportForm::What::Song:
        parts.push_back({});
        break;
    case ExportForm::What::Loop:
        if (const auto index = static_cast<std::size_t>(m_form->loop()); index < m_loops.size())
            parts.push_back(m_loops[index].part);
        break;
    case ExportForm::What::EveryLoop:
        for (const ExportSource::Loop &loop : m_loops)
            parts.push_back(loop.part);
        break;
    }
    return parts;
}

/// What is chosen, without names.
std::vector<ExportRequest> ExportWindow::chosenRequests() const
{
    std::vector<ExportRequest> requests;
    if (!m_source.hasSong())
        return requests;
    const std::vector<exportPlan::Part> parts = chosenParts();
    const bool isLoop = m_form->what() == ExportForm::What::Loop && !parts.empty();
    const exportPlan::Heard heard =
        m_source.heard(isLoop ? std::optional(parts.front().range) : std::nullopt);
    const QString song = m_source.songTitle();
    for (const exportPlan::Part &part : parts) {
        ExportRequest request = exportPlan::request(part, m_form->wanted(), heard);
        m_source.describe(request);
        request.format = m_form->format();
        request.details.title = exportPlan::title(song, part, request);
        requests.push_back(std::move(request));
    }
    return requests;
}

void ExportWindow::showName()
{
    const bool isEvery = m_form->what() == ExportForm::What::EveryLoop;
    m_name->setEnabled(!isEvery);
    if (isEvery) {
        m_name->setText(tr("%1 - name of the loop").arg(m_source.songTitle()));
    } else if (!m_nameIsTyped) {
        const std::vector<ExportRequest> requests = chosenRequests();
        m_name->setText(requests.empty() ? QString() : requests.front().details.title);
        m_name->setCursorPosition(0);
    }
}

void ExportWindow::showEstimate()
{
    const std::vector<ExportRequest> requests = chosenRequests();
    exportPlan::Estimate sum;
    for (const ExportRequest &request : requests)
        sum += exportPlan::estimate(request, m_source.songFrames());
    QString text = exportText::estimate(sum);
    if (requests.size() > 1)
        text = tr("%n files: %1", nullptr, static_cast<int>(requests.size())).arg(text);
    if (!m_form->hasFormats())
        text = tr("Nothing can be exported here: the encoders are missing.");
    else if (requests.empty())
        text = m_source.hasSong() ? tr("This song has no loops.")
                                  : tr("Play a song, with the practice pane open, to export it.");
    m_estimate->setText(text);
    m_export->setEnabled(canExport(requests));
}

/// What is chosen, with the names of its files.
std::vector<ExportRequest> ExportWindow::namedRequests() const
{
    std::vector<ExportRequest> requests = chosenRequests();
    const bool isEvery = m_form->what() == ExportForm::What::EveryLoop;
    QStringList names;
    for (ExportRequest &request : requests) {
        if (!isEvery && !m_name->text().trimmed().isEmpty())
            request.details.title = m_name->text().trimmed();
        const QString file = exportFileName(request.details.title, request.format, tr("Song"));
        names.append(QFileInfo(file).completeBaseName());
    }
    names = exportPlan::different(names);
    for (std::size_t i = 0; i < requests.size(); ++i) {
        const QString file =
            exportFileName(names.at(static_cast<qsizetype>(i)), requests[i].format, tr("Song"));
        requests[i].target = QDir(m_folder).filePath(file);
    }
    return requests;
}

bool ExportWindow::canExport(const std::vector<ExportRequest> &requests) const
{
    return !requests.empty() && m_form->hasFormats();
}

void ExportWindow::exportChosen()
{
    std::vector<ExportRequest> requests = namedRequests();
    if (!canExport(requests))
        return;
    QStringList files;
    for (const ExportRequest &request : requests) {
        if (m_queue->willWrite(request.target)) {
            showMessage(
                tr("“%1” is being exported already.").arg(QFileInfo(request.target).fileName()));
            return;
        }
        files.append(request.target);
    }
    const std::optional<FolderAnswer> answer = askFolder(m_folder, files);
    if (!answer)
        showMessage(tr("The disk of the folder does not answer."));
    else if (!answer->isThere)
        showMessage(tr("The folder is gone. Choose another one."));
    else if (answer->existing.isEmpty())
        begin(std::move(requests));
    else
        askToReplace(std::move(requests), answer->existing);
}

void ExportWindow::askToReplace(std::vector<ExportRequest> requests, const QStringList &existing)
{
    const QString name = QFileInfo(existing.first()).fileName();
    const QString text = existing.size() == 1
                             ? tr("“%1” exists already. Replace it?").arg(name)
                             : tr("%n files of these names exist already. Replace them?", nullptr,
                                  static_cast<int>(existing.size()));
    auto *box =
        new QMessageBox(QMessageBox::Question, windowTitle(), text, QMessageBox::Cancel, this);
    QPushButton *replace = box->addButton(tr("Replace"), QMessageBox::AcceptRole);
    box->setDefaultButton(QMessageBox::Cancel);
    box->setAttribute(Qt::WA_DeleteOnClose);
    connect(replace, &QPushButton::clicked, this,
            [this, requests = std::move(requests)] { begin(requests); });
    box->open();
}

void ExportWindow::begin(std::vector<ExportRequest> requests)
{
    exportSettings::setFormat(m_form->format());
    exportSettings::setFolder(m_folder);
    showMessage({});
    for (ExportRequest &request : requests)
        m_queue->add(std::move(request));
}

} // namespace lyrabox
