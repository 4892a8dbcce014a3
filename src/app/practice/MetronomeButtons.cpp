#include "app/practice/MetronomeButtons.h"

#include "app/practice/ArrowButton.h"
#include "app/practice/ClickSettingsPanel.h"
#include "app/practice/CountInSettingsPanel.h"
#include "app/practice/Metronome.h"
#include "app/practice/MetronomeCommands.h"
#include "app/practice/MetronomeText.h"
#include "platform/ui/Popover.h"

namespace lyrabox {

MetronomeButtons::MetronomeButtons(Metronome *metronome, MetronomeCommands *commands,
                                   QWidget *parent)
    : QObject(parent),
      m_metronome(metronome),
      m_click(new ArrowButton({}, parent)),
      m_countIn(new ArrowButton({}, parent))
{
    const auto showClick = [this] { showPanel(new ClickSettingsPanel(m_metronome), m_click); };
    const auto showCountIn = [this] {
        showPanel(new CountInSettingsPanel(m_metronome), m_countIn);
    };
    for (ArrowButton *button : {m_click, m_countIn})
        button->setCheckable(true);
    connect(m_click, &ArrowButton::settingsWanted, this, showClick);
    connect(m_countIn, &ArrowButton::settingsWanted, this, showCountIn);
    connect(commands, &MetronomeCommands::clickSettingsWanted, this, showClick);
    connect(commands, &MetronomeCommands::countInSettingsWanted, this, showCountIn);
    connect(metronome, &Metronome::changed, this, &MetronomeButtons::showState);
    showState();
}

QString MetronomeButtons::problem() const
{
    if (!m_metronome->beats().isEmpty())
        return {};
    if (m_metronome->clickIsOn())
        return metronomeText::beatsMissing();
    return m_metronome->countInIsOn() ? metronomeText::beatsOrBarsMissing() : QString();
}

SettingsPanel *MetronomeButtons::openPanel() const
{
    return m_popover != nullptr && m_popover->isShown()
               ? qobject_cast<SettingsPanel *>(m_popover->contentView())
               : nullptr;
}

/// A second click on the arrow closes the panel.
void MetronomeButtons::showPanel(SettingsPanel *panel, ArrowButton *button)
{
    if (openPanel() != nullptr && openPanel()->metaObject() == panel->metaObject()) {
        delete panel;
        m_popover->closePopover();
        return;
    }
    if (m_popover == nullptr)
        m_popover = new Popover(button->window());
    panel->resize(panel->sizeHint());
    m_popover->showContent(panel, button, Popover::Edge::MaxY);
}

void MetronomeButtons::showState()
{
    const bool hasBeats = !m_metronome->beats().isEmpty();
    const auto show = [hasBeats](ArrowButton *button, bool isOn, const QString &missing) {
        const bool waits = isOn && !hasBeats;
        button->setWaiting(waits);
        button->setAccessibleDescription(waits ? missing : QString());
        const QString name = button->toolTip().section(u'\n', 0, 0); // given by the pane
        button->setToolTip(waits ? name + u'\n' + missing : name);
    };
    show(m_click, m_metronome->clickIsOn(), metronomeText::beatsMissing());
    show(m_countIn, m_metronome->countInIsOn(), metronomeText::beatsOrBarsMissing());
}

} // namespace lyrabox
