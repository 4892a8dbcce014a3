<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AddPopover</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>BrowserPopover</name>
    <message>
        <source>Choose a folder to add</source>
        <translation>Ordner zum Hinzufügen wählen</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>CommandLineText</name>
    <message>
        <source>Usage: lyrabox [options] [files, folders or file: URLs]

Audio files become the list of songs, and the first one plays. Folders are added
to the list of folders. A program that runs already takes both over.

Options:
  -h, --help     show this help
  -v, --version  show the version
  --             only files and folders follow
</source>
        <translation>Aufruf: lyrabox [Optionen] [Dateien, Ordner oder file:-URLs]

Audiodateien werden zur Liste der Titel, und der erste wird abgespielt. Ordner
kommen zur Ordnerliste. Läuft das Programm schon, übernimmt es beides.

Optionen:
  -h, --help     diese Hilfe zeigen
  -v, --version  die Version zeigen
  --             danach folgen nur Dateien und Ordner
</translation>
    </message>
</context>
<context>
    <name>EmptyListText</name>
    <message>
        <source>This folder cannot be read.</source>
        <translation>Dieser Ordner kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>No songs here.</source>
        <translation>Hier sind keine Titel.</translation>
    </message>
    <message>
        <source>No songs here. Open the folder with its arrow: 1 folder inside.</source>
        <translation>Hier sind keine Titel. Den Ordner mit seinem Pfeil öffnen: 1 Ordner darin.</translation>
    </message>
    <message numerus="yes">
        <source>No songs here. Open the folder with its arrow: %Ln folders inside.</source>
        <translation>
            <numerusform>Hier sind keine Titel. Den Ordner mit seinem Pfeil öffnen: %Ln Ordner darin.</numerusform>
            <numerusform>Hier sind keine Titel. Den Ordner mit seinem Pfeil öffnen: %Ln Ordner darin.</numerusform>
        </translation>
    </message>
    <message>
        <source>Nothing matches &apos;%1&apos;.</source>
        <translation>Nichts passt zu „%1“.</translation>
    </message>
    <message>
        <source>Stopped before a song was read.</source>
        <translation>Angehalten, bevor ein Titel gelesen wurde.</translation>
    </message>
    <message>
        <source>Choose a playlist or folder</source>
        <translation>Eine Liste oder einen Ordner wählen</translation>
    </message>
    <message>
        <source>This playlist has no songs.</source>
        <translation>Diese Liste hat keine Titel.</translation>
    </message>
    <message>
        <source>No songs here or in the folders inside.</source>
        <translation>Weder hier noch in den Ordnern darin sind Titel.</translation>
    </message>
</context>
<context>
    <name>EqualizerWindow</name>
    <message>
        <source>Equalizer</source>
        <translation>Equalizer</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Voreinstellungen</translation>
    </message>
    <message>
        <source>Add or remove a preset</source>
        <translation>Voreinstellung hinzufügen oder entfernen</translation>
    </message>
    <message>
        <source>+12</source>
        <translation>+12</translation>
    </message>
    <message>
        <source>0 dB</source>
        <translation>0 dB</translation>
    </message>
    <message>
        <source>−12</source>
        <translation>−12</translation>
    </message>
    <message>
        <source>Level at 31.5 hertz</source>
        <translation>Pegel bei 31,5 Hertz</translation>
    </message>
    <message>
        <source>Level at 63 hertz</source>
        <translation>Pegel bei 63 Hertz</translation>
    </message>
    <message>
        <source>Level at 125 hertz</source>
        <translation>Pegel bei 125 Hertz</translation>
    </message>
    <message>
        <source>Level at 250 hertz</source>
        <translation>Pegel bei 250 Hertz</translation>
    </message>
    <message>
        <source>Level at 500 hertz</source>
        <translation>Pegel bei 500 Hertz</translation>
    </message>
    <message>
        <source>Level at 1 kilohertz</source>
        <translation>Pegel bei 1 Kilohertz</translation>
    </message>
    <message>
        <source>Level at 2 kilohertz</source>
        <translation>Pegel bei 2 Kilohertz</translation>
    </message>
    <message>
        <source>Level at 4 kilohertz</source>
        <translation>Pegel bei 4 Kilohertz</translation>
    </message>
    <message>
        <source>Level at 8 kilohertz</source>
        <translation>Pegel bei 8 Kilohertz</translation>
    </message>
    <message>
        <source>Level at 16 kilohertz</source>
        <translation>Pegel bei 16 Kilohertz</translation>
    </message>
    <message>
        <source>31.5</source>
        <translation>31,5</translation>
    </message>
    <message>
        <source>63</source>
        <translation>63</translation>
    </message>
    <message>
        <source>125</source>
        <translation>125</translation>
    </message>
    <message>
        <source>250</source>
        <translation>250</translation>
    </message>
    <message>
        <source>500</source>
        <translation>500</translation>
    </message>
    <message>
        <source>1k</source>
        <translation>1k</translation>
    </message>
    <message>
        <source>2k</source>
        <translation>2k</translation>
    </message>
    <message>
        <source>4k</source>
        <translation>4k</translation>
    </message>
    <message>
        <source>8k</source>
        <translation>8k</translation>
    </message>
    <message>
        <source>16k</source>
        <translation>16k</translation>
    </message>
    <message>
        <source>Level at 31.5 hertz in decibels</source>
        <translation>Pegel bei 31,5 Hertz in Dezibel</translation>
    </message>
    <message>
        <source>Level at 63 hertz in decibels</source>
        <translation>Pegel bei 63 Hertz in Dezibel</translation>
    </message>
    <message>
        <source>Level at 125 hertz in decibels</source>
        <translation>Pegel bei 125 Hertz in Dezibel</translation>
    </message>
    <message>
        <source>Level at 250 hertz in decibels</source>
        <translation>Pegel bei 250 Hertz in Dezibel</translation>
    </message>
    <message>
        <source>Level at 500 hertz in decibels</source>
        <translation>Pegel bei 500 Hertz in Dezibel</translation>
    </message>
    <message>
        <source>Level at 1 kilohertz in decibels</source>
        <translation>Pegel bei 1 Kilohertz in Dezibel</translation>
    </message>
    <message>
        <source>Level at 2 kilohertz in decibels</source>
        <translation>Pegel bei 2 Kilohertz in Dezibel</translation>
    </message>
    <message>
        <source>Level at 4 kilohertz in decibels</source>
        <translation>Pegel bei 4 Kilohertz in Dezibel</translation>
    </message>
    <message>
        <source>Level at 8 kilohertz in decibels</source>
        <translation>Pegel bei 8 Kilohertz in Dezibel</translation>
    </message>
    <message>
        <source>Level at 16 kilohertz in decibels</source>
        <translation>Pegel bei 16 Kilohertz in Dezibel</translation>
    </message>
    <message>
        <source>Steps at 31.5 hertz</source>
        <translation>Schritte bei 31,5 Hertz</translation>
    </message>
    <message>
        <source>Steps at 63 hertz</source>
        <translation>Schritte bei 63 Hertz</translation>
    </message>
    <message>
        <source>Steps at 125 hertz</source>
        <translation>Schritte bei 125 Hertz</translation>
    </message>
    <message>
        <source>Steps at 250 hertz</source>
        <translation>Schritte bei 250 Hertz</translation>
    </message>
    <message>
        <source>Steps at 500 hertz</source>
        <translation>Schritte bei 500 Hertz</translation>
    </message>
    <message>
        <source>Steps at 1 kilohertz</source>
        <translation>Schritte bei 1 Kilohertz</translation>
    </message>
    <message>
        <source>Steps at 2 kilohertz</source>
        <translation>Schritte bei 2 Kilohertz</translation>
    </message>
    <message>
        <source>Steps at 4 kilohertz</source>
        <translation>Schritte bei 4 Kilohertz</translation>
    </message>
    <message>
        <source>Steps at 8 kilohertz</source>
        <translation>Schritte bei 8 Kilohertz</translation>
    </message>
    <message>
        <source>Steps at 16 kilohertz</source>
        <translation>Schritte bei 16 Kilohertz</translation>
    </message>
    <message>
        <source>Levels</source>
        <translation>Pegel</translation>
    </message>
</context>
<context>
    <name>HelpText</name>
    <message>
        <source>Version %1
A music-practice player.
Free software under the GNU General Public License, version 3 or later.</source>
        <translation>Version %1
Ein Musikspieler zum Üben.
Freie Software unter der GNU General Public License, Version 3 oder neuer.</translation>
    </message>
    <message>
        <source>Space: play or pause
Left, Right: click to go back or to the next song, hold to move through the song
Shift+Left, Shift+Right: 5 seconds back and forward
L: mark the start of a loop, then its end, then clear it
- and =: slower and faster; 0: normal speed
[ and ]: a semitone down and up; \: original pitch
Ctrl+Up, Ctrl+Down: volume
Return: play the selected song
Ctrl+S: keep the speed and pitch of the song
Ctrl+F: search
Ctrl+L, Ctrl+B: the list of songs, the playlists and folders
Delete, Insert: remove a folder or preset, add a preset
Tab and the arrow keys: every other control
Ctrl+1, Ctrl+2: the main window, the equalizer</source>
        <translation>Leertaste: Wiedergabe oder Pause
Links, Rechts: kurz für den vorigen oder nächsten Titel, gehalten zum Spulen
Umschalt+Links, Umschalt+Rechts: 5 Sekunden zurück und vor
L: Anfang einer Schleife setzen, dann ihr Ende, dann aufheben
- und =: langsamer und schneller; 0: normales Tempo
[ und ]: einen Halbton tiefer und höher; \: ursprüngliche Tonhöhe
Strg+Auf, Strg+Ab: Lautstärke
Eingabe: den gewählten Titel spielen
Strg+S: Tempo und Tonhöhe des Titels merken
Strg+F: suchen
Strg+L, Strg+B: die Titelliste, die Listen und Ordner
Entf, Einfg: Ordner oder Voreinstellung entfernen, Voreinstellung hinzufügen
Tabulator und Pfeiltasten: alle anderen Bedienelemente
Strg+1, Strg+2: das Hauptfenster, der Equalizer</translation>
    </message>
    <message>
        <source>%1: the practice pane; while it is open:</source>
        <translation>%1: der Übebereich; solange er offen ist:</translation>
    </message>
    <message>
        <source>%1: pedals and keys</source>
        <translation>%1: Pedale und Tasten</translation>
    </message>
</context>
<context>
    <name>LB_AudioController</name>
    <message>
        <source>Lyrabox cannot build its audio system. (Error %1)</source>
        <translation>Lyrabox kann seine Tonausgabe nicht aufbauen. (Fehler %1)</translation>
    </message>
    <message>
        <source>The program will now terminate</source>
        <translation>Das Programm wird jetzt beendet</translation>
    </message>
    <message>
        <source>No sound: the sound server does not answer</source>
        <translation>Kein Ton: Der Soundserver antwortet nicht</translation>
    </message>
</context>
<context>
    <name>LB_EqualizerController</name>
    <message>
        <source>Enter a name for the new preset</source>
        <translation>Name der neuen Voreinstellung</translation>
    </message>
    <message>
        <source>New Preset</source>
        <translation>Neue Voreinstellung</translation>
    </message>
    <message>
        <source>Remove preset &apos;%1&apos;?</source>
        <translation>Voreinstellung „%1“ entfernen?</translation>
    </message>
    <message>
        <source>Add a preset</source>
        <translation>Voreinstellung hinzufügen</translation>
    </message>
    <message>
        <source>Remove the preset</source>
        <translation>Voreinstellung entfernen</translation>
    </message>
</context>
<context>
    <name>LB_FolderSourceController</name>
    <message>
        <source>No folders yet. Press + to add one, or drop a folder here.</source>
        <translation>Noch keine Ordner. Mit + einen hinzufügen oder einen Ordner hierher ziehen.</translation>
    </message>
    <message>
        <source>Remove folder &apos;%1&apos;?</source>
        <translation>Ordner „%1“ entfernen?</translation>
    </message>
</context>
<context>
    <name>LB_NavigationView</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>LB_PlaylistSourceController</name>
    <message>
        <source>No playlists. Choose a music library in the File menu, or add folders on the other tab.</source>
        <translation>Keine Listen. Im Menü „Datei“ eine Musikbibliothek wählen oder auf dem anderen Reiter Ordner hinzufügen.</translation>
    </message>
</context>
<context>
    <name>LB_QueueController</name>
    <message>
        <source>Error loading &apos;%1&apos; (%2)</source>
        <translation>Fehler beim Laden von „%1“ (%2)</translation>
    </message>
</context>
<context>
    <name>LB_SettingsController</name>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Source list</source>
        <translation>Quellen</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>Listen</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Add or remove a folder</source>
        <translation>Ordner hinzufügen oder entfernen</translation>
    </message>
    <message>
        <source>Number of songs</source>
        <translation>Anzahl der Titel</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Shuffle</source>
        <translation>Zufällig</translation>
    </message>
    <message>
        <source>Play the list in random order</source>
        <translation>Liste in zufälliger Reihenfolge spielen</translation>
    </message>
    <message>
        <source>Search songs</source>
        <translation>Titel suchen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Transport</source>
        <translation>Transport</translation>
    </message>
    <message>
        <source>Artwork</source>
        <translation>Cover</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Artist and album</source>
        <translation>Interpret und Album</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Previous song; hold to rewind</source>
        <translation>Voriger Titel; halten zum Zurückspulen</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Wiedergabe oder Pause</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vor</translation>
    </message>
    <message>
        <source>Next song; hold to fast-forward</source>
        <translation>Nächster Titel; halten zum Vorspulen</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Schleife</translation>
    </message>
    <message>
        <source>Mark the start of a loop, then its end</source>
        <translation>Anfang einer Schleife setzen, dann ihr Ende</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Speed steps</source>
        <translation>Temposchritte</translation>
    </message>
    <message>
        <source>Speed in percent</source>
        <translation>Tempo in Prozent</translation>
    </message>
    <message>
        <source>Pitch (cents)</source>
        <translation>Tonhöhe (Cent)</translation>
    </message>
    <message>
        <source>Pitch steps</source>
        <translation>Tonhöhenschritte</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>Tonhöhe</translation>
    </message>
    <message>
        <source>Pitch in cents</source>
        <translation>Tonhöhe in Cent</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Song settings</source>
        <translation>Titeleinstellungen</translation>
    </message>
    <message>
        <source>Keep or forget the speed and pitch of this song</source>
        <translation>Tempo und Tonhöhe dieses Titels merken oder vergessen</translation>
    </message>
</context>
<context>
    <name>MusicLibrary</name>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
</context>
<context>
    <name>OpenText</name>
    <message numerus="yes">
        <source>&apos;%1&apos; and %n more could not be opened</source>
        <translation>
            <numerusform>„%1“ und %n weitere Datei konnten nicht geöffnet werden</numerusform>
            <numerusform>„%1“ und %n weitere Dateien konnten nicht geöffnet werden</numerusform>
        </translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a file on this computer</source>
        <translation>„%1“ ist keine Datei auf diesem Computer</translation>
    </message>
    <message>
        <source>There is no &apos;%1&apos;</source>
        <translation>„%1“ gibt es nicht</translation>
    </message>
    <message>
        <source>&apos;%1&apos; may not be read</source>
        <translation>„%1“ darf nicht gelesen werden</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not an audio file</source>
        <translation>„%1“ ist keine Audiodatei</translation>
    </message>
</context>
<context>
    <name>ProgressText</name>
    <message numerus="yes">
        <source>Reading songs: %1 of %Ln</source>
        <translation>
            <numerusform>Titel werden gelesen: %1 von %Ln</numerusform>
            <numerusform>Titel werden gelesen: %1 von %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Loading: %Ln seconds</source>
        <translation>
            <numerusform>Laden: %Ln Sekunde</numerusform>
            <numerusform>Laden: %Ln Sekunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Loading: %1 of %Ln seconds</source>
        <translation>
            <numerusform>Laden: %1 von %Ln Sekunde</numerusform>
            <numerusform>Laden: %1 von %Ln Sekunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Searching folders: %Ln files</source>
        <translation>
            <numerusform>Ordner werden durchsucht: %Ln Datei</numerusform>
            <numerusform>Ordner werden durchsucht: %Ln Dateien</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Skipping songs that cannot be loaded: %1 of %Ln</source>
        <translation>
            <numerusform>Titel, die nicht geladen werden können, werden übersprungen: %1 von %Ln</numerusform>
            <numerusform>Titel, die nicht geladen werden können, werden übersprungen: %1 von %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>Escape stops it</source>
        <translation>Escape hält an</translation>
    </message>
</context>
<context>
    <name>RemovePopover</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>TrackCountTextTransformer</name>
    <message>
        <source>1 song</source>
        <translation>1 Titel</translation>
    </message>
    <message numerus="yes">
        <source>%n songs</source>
        <translation>
            <numerusform>%n Titel</numerusform>
            <numerusform>%n Titel</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>UpdateDialog</name>
    <message>
        <source>Updates</source>
        <translation>Aktualisierungen</translation>
    </message>
    <message>
        <source>Lyrabox %1 is available.</source>
        <translation>Lyrabox %1 ist verfügbar.</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>Was neu ist</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>Open Its Page</source>
        <translation>Seite öffnen</translation>
    </message>
</context>
<context>
    <name>lyrabox::AssignmentRows</name>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Pedal or knob</source>
        <translation>Pedal oder Regler</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Pedals</source>
        <translation>Pedale</translation>
    </message>
</context>
<context>
    <name>lyrabox::BarText</name>
    <message>
        <source>1 bar</source>
        <translation>1 Takt</translation>
    </message>
    <message>
        <source>%1 bars</source>
        <translation>%1 Takte</translation>
    </message>
    <message>
        <source>1 beat</source>
        <translation>1 Schlag</translation>
    </message>
    <message>
        <source>%1 beats</source>
        <translation>%1 Schläge</translation>
    </message>
</context>
<context>
    <name>lyrabox::BeatPage</name>
    <message>
        <source>Play the song, and tap along with it.</source>
        <translation>Spielen Sie den Song und tippen Sie mit.</translation>
    </message>
    <message>
        <source>Tap along with at least four different beats.</source>
        <translation>Tippen Sie zu mindestens vier verschiedenen Schlägen.</translation>
    </message>
    <message>
        <source>These taps are slower than %1 BPM. Tap every beat.</source>
        <translation>Das ist langsamer als %1 BPM. Tippen Sie jeden Schlag.</translation>
    </message>
    <message>
        <source>These taps are faster than %1 BPM. Tap every second one.</source>
        <translation>Das ist schneller als %1 BPM. Tippen Sie jeden zweiten.</translation>
    </message>
    <message>
        <source>These taps are uneven. Wait a moment, and begin again at the first beat of a bar.</source>
        <translation>Das ist ungleichmäßig. Warten Sie kurz und beginnen Sie neu auf dem ersten Schlag eines Taktes.</translation>
    </message>
    <message>
        <source>The song has no beats of this tempo. Tap them instead.</source>
        <translation>Der Song hat keine Schläge in diesem Tempo. Tippen Sie sie.</translation>
    </message>
    <message>
        <source>The beats of this song cannot be changed.</source>
        <translation>Die Taktschläge dieses Songs lassen sich nicht ändern.</translation>
    </message>
    <message>
        <source>Tap %1 of %2 …</source>
        <translation>Schlag %1 von %2 …</translation>
    </message>
    <message>
        <source>Listening to the song …</source>
        <translation>Der Song wird angehört …</translation>
    </message>
    <message>
        <source>The beats of the whole song are known.</source>
        <translation>Die Schläge des ganzen Songs sind bekannt.</translation>
    </message>
    <message>
        <source>Where the wave is hatched, the beats are not known. Tap there, too.</source>
        <translation>Wo die Welle schraffiert ist, sind die Schläge nicht bekannt. Tippen Sie auch dort.</translation>
    </message>
    <message>
        <source>About %1 BPM. Use this, or tap eight beats from a first beat on.</source>
        <translation>Etwa %1 BPM. Übernehmen Sie das oder tippen Sie ab einer Eins acht Schläge.</translation>
    </message>
    <message>
        <source>Tap eight beats along with the song. Begin at the first beat of a bar.</source>
        <translation>Tippen Sie acht Schläge mit. Beginnen Sie auf dem ersten Schlag eines Taktes.</translation>
    </message>
    <message>
        <source>First beat</source>
        <translation>Erster Schlag</translation>
    </message>
    <message>
        <source>Tap</source>
        <translation>Tippen</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Tempo of the song in beats per minute</source>
        <translation>Tempo des Songs in Schlägen pro Minute</translation>
    </message>
    <message>
        <source>Meter</source>
        <translation>Taktart</translation>
    </message>
    <message>
        <source>Change the bars only from the bar at the line on</source>
        <translation>Die Takte erst ab dem Takt an der Linie ändern</translation>
    </message>
    <message>
        <source>One beat less per bar</source>
        <translation>Ein Schlag weniger pro Takt</translation>
    </message>
    <message>
        <source>One beat more per bar</source>
        <translation>Ein Schlag mehr pro Takt</translation>
    </message>
    <message>
        <source>Beats per bar</source>
        <translation>Schläge pro Takt</translation>
    </message>
    <message>
        <source>from bar %1</source>
        <translation>ab Takt %1</translation>
    </message>
    <message>
        <source>from here</source>
        <translation>ab hier</translation>
    </message>
</context>
<context>
    <name>lyrabox::CentrePanel</name>
    <message>
        <source>Centre</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Lowest frequency of the middle</source>
        <translation>Tiefste Frequenz der Mitte</translation>
    </message>
    <message>
        <source>Highest frequency of the middle</source>
        <translation>Höchste Frequenz der Mitte</translation>
    </message>
    <message>
        <source>What lies below or above does not count as the middle, such as bass and cymbals.</source>
        <translation>Was darunter oder darüber liegt, zählt nicht zur Mitte, etwa Bass und Becken.</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>Hz</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Bis</translation>
    </message>
</context>
<context>
    <name>lyrabox::ChoiceButton</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>lyrabox::ClickSettingsPanel</name>
    <message>
        <source>Click</source>
        <translation>Klick</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Klang</translation>
    </message>
    <message>
        <source>Tick</source>
        <translation>Tick</translation>
    </message>
    <message>
        <source>Wood</source>
        <translation>Holz</translation>
    </message>
    <message>
        <source>Beep</source>
        <translation>Piep</translation>
    </message>
    <message>
        <source>Side</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>Beide</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Accent</source>
        <translation>Betonung</translation>
    </message>
    <message>
        <source>On 1</source>
        <translation>Auf 1</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Beats</source>
        <translation>Taktschläge</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Only 2 and 4</source>
        <translation>Nur 2 und 4</translation>
    </message>
    <message>
        <source>Clicks in a beat</source>
        <translation>Klicks je Schlag</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Bars that sound</source>
        <translation>Takte mit Klick</translation>
    </message>
    <message>
        <source>Silent bars</source>
        <translation>Stumme Takte</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>Takte</translation>
    </message>
    <message>
        <source>sound, then</source>
        <translation>klingen, dann</translation>
    </message>
    <message>
        <source>silent</source>
        <translation>stumm</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>lyrabox::Composition</name>
    <message>
        <source>Slower by 5 percent</source>
        <translation>5 Prozent langsamer</translation>
    </message>
    <message>
        <source>Normal speed</source>
        <translation>Normales Tempo</translation>
    </message>
    <message>
        <source>Faster by 5 percent</source>
        <translation>5 Prozent schneller</translation>
    </message>
    <message>
        <source>A semitone down</source>
        <translation>Einen Halbton tiefer</translation>
    </message>
    <message>
        <source>Original pitch</source>
        <translation>Ursprüngliche Tonhöhe</translation>
    </message>
    <message>
        <source>A semitone up</source>
        <translation>Einen Halbton höher</translation>
    </message>
    <message>
        <source>Add a folder</source>
        <translation>Ordner hinzufügen</translation>
    </message>
    <message>
        <source>Remove the folder</source>
        <translation>Ordner entfernen</translation>
    </message>
    <message>
        <source>Down 1 decibel</source>
        <translation>1 Dezibel leiser</translation>
    </message>
    <message>
        <source>0 decibels</source>
        <translation>0 Dezibel</translation>
    </message>
    <message>
        <source>Up 1 decibel</source>
        <translation>1 Dezibel lauter</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>Listen</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Mark the start of a loop</source>
        <translation>Anfang einer Schleife setzen</translation>
    </message>
    <message>
        <source>Mark the end of the loop</source>
        <translation>Ende der Schleife setzen</translation>
    </message>
    <message>
        <source>Clear the loop</source>
        <translation>Schleife aufheben</translation>
    </message>
    <message>
        <source>Shuffle</source>
        <translation>Zufällig</translation>
    </message>
    <message>
        <source>Play in order</source>
        <translation>Der Reihe nach spielen</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>About Lyrabox</source>
        <translation>Über Lyrabox</translation>
    </message>
    <message>
        <source>Choose Music Library</source>
        <translation>Musikbibliothek wählen</translation>
    </message>
    <message>
        <source>Music libraries (*.xml *.plist);;All files (*)</source>
        <translation>Musikbibliotheken (*.xml *.plist);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Music library chosen</source>
        <translation>Musikbibliothek gewählt</translation>
    </message>
    <message>
        <source>Its playlists are shown from the next start of Lyrabox on.</source>
        <translation>Ihre Listen erscheinen ab dem nächsten Start von Lyrabox.</translation>
    </message>
    <message>
        <source>The music library could not be chosen</source>
        <translation>Die Musikbibliothek konnte nicht gewählt werden</translation>
    </message>
    <message>
        <source>The preferences could not be written.</source>
        <translation>Die Einstellungen konnten nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Remove Folder…</source>
        <translation>Ordner entfernen …</translation>
    </message>
    <message>
        <source>Add Preset…</source>
        <translation>Voreinstellung hinzufügen …</translation>
    </message>
    <message>
        <source>Remove Preset…</source>
        <translation>Voreinstellung entfernen …</translation>
    </message>
    <message>
        <source>Songs cannot be opened (%1)</source>
        <translation>Titel können nicht geöffnet werden (%1)</translation>
    </message>
    <message>
        <source>Stopped: not all songs are in the list</source>
        <translation>Angehalten: Nicht alle Titel sind in der Liste</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>Tonhöhe</translation>
    </message>
</context>
<context>
    <name>lyrabox::CountInSettingsPanel</name>
    <message>
        <source>Count-in</source>
        <translation>Einzähler</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Wann</translation>
    </message>
    <message>
        <source>At Play</source>
        <translation>Beim Start</translation>
    </message>
    <message>
        <source>Before every pass</source>
        <translation>Vor jedem Durchgang</translation>
    </message>
    <message>
        <source>1 bar</source>
        <translation>1 Takt</translation>
    </message>
    <message>
        <source>2 bars</source>
        <translation>2 Takte</translation>
    </message>
    <message>
        <source>Beats</source>
        <translation>Schläge</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Beats of the count-in</source>
        <translation>Schläge des Einzählers</translation>
    </message>
    <message>
        <source>Bars of the loop</source>
        <translation>Takte der Schleife</translation>
    </message>
    <message>
        <source>Beats of a bar</source>
        <translation>Schläge je Takt</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Setzen</translation>
    </message>
    <message>
        <source>bars of</source>
        <translation>Takte zu</translation>
    </message>
    <message>
        <source>This loop has</source>
        <translation>Die Schleife hat</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Vergessen</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportForm</name>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Schleife</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Every Loop</source>
        <translation>Jede Schleife</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Times</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>As the Ladder</source>
        <translation>Als Leiter</translation>
    </message>
    <message>
        <source>Speed and Pitch</source>
        <translation>Tempo und Tonhöhe</translation>
    </message>
    <message>
        <source>Equalizer</source>
        <translation>Equalizer</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Kanäle</translation>
    </message>
    <message>
        <source>Click</source>
        <translation>Klick</translation>
    </message>
    <message>
        <source>As heard</source>
        <translation>Wie zu hören</translation>
    </message>
    <message>
        <source>This is as in the song.</source>
        <translation>Das ist wie im Titel.</translation>
    </message>
    <message>
        <source>There is no loop.</source>
        <translation>Es gibt keine Schleife.</translation>
    </message>
    <message>
        <source>As the Ladder, %1</source>
        <translation>Als Leiter, %1</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportRows</name>
    <message>
        <source>Waiting</source>
        <translation>Wartet</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportText</name>
    <message>
        <source>This format cannot be written here.</source>
        <translation>Dieses Format kann hier nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Songs cannot be read here.</source>
        <translation>Titel können hier nicht gelesen werden.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>Der Arbeitsspeicher reicht nicht.</translation>
    </message>
    <message>
        <source>There is nothing to export: the loop lies beyond the end of the song.</source>
        <translation>Es gibt nichts zu exportieren: Die Schleife liegt hinter dem Ende des Titels.</translation>
    </message>
    <message>
        <source>The disk failed while the song was read or the file was written.</source>
        <translation>Der Datenträger hat versagt, während der Titel gelesen oder die Datei geschrieben wurde.</translation>
    </message>
    <message>
        <source>The export failed (%1).</source>
        <translation>Der Export ist gescheitert (%1).</translation>
    </message>
    <message>
        <source>FLAC (lossless)</source>
        <translation>FLAC (verlustfrei)</translation>
    </message>
    <message>
        <source>WAV, 16 bits</source>
        <translation>WAV, 16 Bit</translation>
    </message>
    <message>
        <source>WAV, 24 bits</source>
        <translation>WAV, 24 Bit</translation>
    </message>
    <message>
        <source>WAV, 32 bits (float)</source>
        <translation>WAV, 32 Bit (Gleitkomma)</translation>
    </message>
    <message>
        <source>Opus</source>
        <translation>Opus</translation>
    </message>
    <message>
        <source>MP3</source>
        <translation>MP3</translation>
    </message>
    <message>
        <source>M4A (AAC)</source>
        <translation>M4A (AAC)</translation>
    </message>
    <message>
        <source>The song&apos;s file is gone.</source>
        <translation>Die Datei des Titels ist nicht mehr da.</translation>
    </message>
    <message>
        <source>The song&apos;s file may not be read.</source>
        <translation>Die Datei des Titels darf nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The song&apos;s file has changed. Open it again, then export it.</source>
        <translation>Die Datei des Titels hat sich geändert. Den Titel erneut öffnen und dann exportieren.</translation>
    </message>
    <message>
        <source>The song&apos;s file cannot be read.</source>
        <translation>Die Datei des Titels kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The folder is gone.</source>
        <translation>Der Ordner ist nicht mehr da.</translation>
    </message>
    <message>
        <source>The file may not be written there.</source>
        <translation>Die Datei darf dort nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The name is too long for this disk.</source>
        <translation>Der Name ist für diesen Datenträger zu lang.</translation>
    </message>
    <message>
        <source>The disk is full.</source>
        <translation>Der Datenträger ist voll.</translation>
    </message>
    <message>
        <source>The file is too large for this disk.</source>
        <translation>Die Datei ist für diesen Datenträger zu groß.</translation>
    </message>
    <message>
        <source>about %1 s</source>
        <translation>etwa %1 s</translation>
    </message>
    <message>
        <source>about %1 min</source>
        <translation>etwa %1 min</translation>
    </message>
    <message>
        <source>%1 · about %2 · ready in %3</source>
        <translation>%1 · etwa %2 · fertig in %3</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportWindow</name>
    <message>
        <source>Choose…</source>
        <translation>Wählen …</translation>
    </message>
    <message>
        <source>Cancel Export</source>
        <translation>Export abbrechen</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Exports</source>
        <translation>Exporte</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Choose the folder, now %1</source>
        <translation>Den Ordner wählen, jetzt %1</translation>
    </message>
    <message>
        <source>Folder for Exports</source>
        <translation>Ordner für Exporte</translation>
    </message>
    <message>
        <source>%1 to %2 %</source>
        <translation>%1 bis %2 %</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>each its own</source>
        <translation>jede ihre eigene</translation>
    </message>
    <message>
        <source>%1 - name of the loop</source>
        <translation>%1 - Name der Schleife</translation>
    </message>
    <message numerus="yes">
        <source>%n files: %1</source>
        <translation>
            <numerusform>%n Dateien: %1</numerusform>
            <numerusform>%n Dateien: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>This song has no loops.</source>
        <translation>Dieser Titel hat keine Schleifen.</translation>
    </message>
    <message>
        <source>Play a song, with the practice pane open, to export it.</source>
        <translation>Ein Titel lässt sich exportieren, wenn er spielt und der Übebereich offen ist.</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>“%1” is being exported already.</source>
        <translation>„%1“ wird schon exportiert.</translation>
    </message>
    <message>
        <source>The disk of the folder does not answer.</source>
        <translation>Der Datenträger des Ordners antwortet nicht.</translation>
    </message>
    <message>
        <source>The folder is gone. Choose another one.</source>
        <translation>Der Ordner ist nicht mehr da. Bitte einen anderen wählen.</translation>
    </message>
    <message>
        <source>“%1” exists already. Replace it?</source>
        <translation>„%1“ gibt es schon. Ersetzen?</translation>
    </message>
    <message numerus="yes">
        <source>%n files of these names exist already. Replace them?</source>
        <translation>
            <numerusform>%n Dateien dieser Namen gibt es schon. Ersetzen?</numerusform>
            <numerusform>%n Dateien dieser Namen gibt es schon. Ersetzen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Nothing can be exported here: the encoders are missing.</source>
        <translation>Hier lässt sich nichts exportieren: Die Encoder fehlen.</translation>
    </message>
</context>
<context>
    <name>lyrabox::HistoryLoops</name>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>This Song</source>
        <translation>Dieser Titel</translation>
    </message>
    <message>
        <source>Other Songs, Longest Not Practised First</source>
        <translation>Andere Titel, am längsten nicht geübte zuerst</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keines</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Schleife</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Best</source>
        <translation>Bestes</translation>
    </message>
    <message>
        <source>Practised</source>
        <translation>Geübt</translation>
    </message>
</context>
<context>
    <name>lyrabox::HistoryWindow</name>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Best Speed</source>
        <translation>Bestes Tempo</translation>
    </message>
    <message>
        <source>Week</source>
        <translation>Woche</translation>
    </message>
    <message>
        <source>Practised</source>
        <translation>Geübt</translation>
    </message>
    <message>
        <source>Forget History…</source>
        <translation>Verlauf vergessen …</translation>
    </message>
    <message>
        <source>Practice History</source>
        <translation>Übungsverlauf</translation>
    </message>
    <message>
        <source>Nothing was practised yet. Keep a loop and play it: its best speed of each day, and the minutes of each week, appear here.</source>
        <translation>Noch wurde nichts geübt. Eine Schleife merken und spielen: Hier erscheinen ihr bestes Tempo an jedem Tag und die Minuten jeder Woche.</translation>
    </message>
    <message>
        <source>Practised loops</source>
        <translation>Geübte Schleifen</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Diagramm</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>Tabelle</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>Best Speed of Each Day</source>
        <translation>Bestes Tempo an jedem Tag</translation>
    </message>
    <message>
        <source>Minutes of Each Week, All Loops</source>
        <translation>Minuten jeder Woche, alle Schleifen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>The history is kept on this computer only.</source>
        <translation>Der Verlauf bleibt auf diesem Computer.</translation>
    </message>
    <message>
        <source>The history could not be deleted.</source>
        <translation>Der Verlauf ließ sich nicht löschen.</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Forget the whole history?</source>
        <translation>Den ganzen Verlauf vergessen?</translation>
    </message>
    <message>
        <source>The best speeds and the minutes of all songs are deleted from this computer. They were never anywhere else. Loops and markers stay.</source>
        <translation>Die besten Tempi und die Minuten aller Titel werden von diesem Computer gelöscht. Sie waren nie woanders. Schleifen und Marken bleiben.</translation>
    </message>
    <message>
        <source>Forget History</source>
        <translation>Verlauf vergessen</translation>
    </message>
</context>
<context>
    <name>lyrabox::Learner</name>
    <message>
        <source>Move the pedal or knob for “%1”. Escape cancels.</source>
        <translation>Bewegen Sie das Pedal oder den Regler für „%1“. Esc bricht ab.</translation>
    </message>
    <message>
        <source>Press a key or a pedal for “%1”. Escape cancels.</source>
        <translation>Drücken Sie eine Taste oder ein Pedal für „%1“. Esc bricht ab.</translation>
    </message>
    <message>
        <source>%1 is needed in every window. Press another key or a pedal. Escape cancels.</source>
        <translation>%1 wird in jedem Fenster gebraucht. Drücken Sie eine andere Taste oder ein Pedal. Esc bricht ab.</translation>
    </message>
    <message>
        <source>%1 is assigned to “%2”. Use it for “%3” instead?</source>
        <translation>%1 ist mit „%2“ belegt. Stattdessen für „%3“ verwenden?</translation>
    </message>
    <message>
        <source>There is no room for more.</source>
        <translation>Für mehr ist kein Platz.</translation>
    </message>
    <message>
        <source>%1 is now “%2”.</source>
        <translation>%1 ist jetzt „%2“.</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopColors</name>
    <message>
        <source>Violet</source>
        <translation>Violett</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Brown</source>
        <translation>Braun</translation>
    </message>
    <message>
        <source>Olive</source>
        <translation>Oliv</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Teal</source>
        <translation>Petrol</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>Grau</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopEdits</name>
    <message>
        <source>Loop %1</source>
        <translation>Schleife %1</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopEnds</name>
    <message>
        <source>Start</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>Start of the loop</source>
        <translation>Anfang der Schleife</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>End of the loop</source>
        <translation>Ende der Schleife</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopList</name>
    <message>
        <source>Loops and markers</source>
        <translation>Schleifen und Marken</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Wiedergabe</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>&amp;Note…</source>
        <translation>&amp;Notiz …</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Colour</source>
        <translation>&amp;Farbe</translation>
    </message>
    <message>
        <source>&amp;Keep Speed and Pitch</source>
        <translation>Tempo und Tonhöhe &amp;merken</translation>
    </message>
    <message>
        <source>&amp;Forget Speed and Pitch</source>
        <translation>Tempo und Tonhöhe &amp;vergessen</translation>
    </message>
    <message>
        <source>Note for “%1”</source>
        <translation>Notiz zu „%1“</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopListModel</name>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Marke</translation>
    </message>
    <message>
        <source>Loop %1</source>
        <translation>Schleife %1</translation>
    </message>
    <message>
        <source>Beyond the end of the song</source>
        <translation>Hinter dem Ende des Titels</translation>
    </message>
    <message>
        <source>Pitch: %1 cents</source>
        <translation>Tonhöhe: %1 Cent</translation>
    </message>
    <message>
        <source>Loop %1, called up</source>
        <translation>Schleife %1, aufgerufen</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Stelle</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Best speed: %1 %</source>
        <translation>Bestes Tempo: %1 %</translation>
    </message>
    <message>
        <source>Best Speed</source>
        <translation>Bestes Tempo</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopsPage</name>
    <message>
        <source>The loops and markers of a song are listed here.</source>
        <translation>Hier stehen die Schleifen und Marken eines Titels.</translation>
    </message>
    <message>
        <source>Press K to keep the loop that sounds, M to set a marker.</source>
        <translation>K behält die Schleife, die klingt; M setzt eine Marke.</translation>
    </message>
</context>
<context>
    <name>lyrabox::MainMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Add Folder…</source>
        <translation>Ordner &amp;hinzufügen …</translation>
    </message>
    <message>
        <source>Choose &amp;Music Library…</source>
        <translation>&amp;Musikbibliothek wählen …</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Search Songs</source>
        <translation>Titel &amp;suchen</translation>
    </message>
    <message>
        <source>&amp;Playback</source>
        <translation>&amp;Wiedergabe</translation>
    </message>
    <message>
        <source>&amp;Play or Pause</source>
        <translation>&amp;Wiedergabe oder Pause</translation>
    </message>
    <message>
        <source>&amp;Next Song</source>
        <translation>&amp;Nächster Titel</translation>
    </message>
    <message>
        <source>P&amp;revious Song</source>
        <translation>&amp;Voriger Titel</translation>
    </message>
    <message>
        <source>S&amp;huffle</source>
        <translation>&amp;Zufällige Reihenfolge</translation>
    </message>
    <message>
        <source>&amp;Loop</source>
        <translation>S&amp;chleife</translation>
    </message>
    <message>
        <source>&amp;Faster</source>
        <translation>&amp;Schneller</translation>
    </message>
    <message>
        <source>&amp;Slower</source>
        <translation>Lan&amp;gsamer</translation>
    </message>
    <message>
        <source>N&amp;ormal Speed</source>
        <translation>N&amp;ormales Tempo</translation>
    </message>
    <message>
        <source>Pitch &amp;Up</source>
        <translation>&amp;Höher</translation>
    </message>
    <message>
        <source>Pitch &amp;Down</source>
        <translation>&amp;Tiefer</translation>
    </message>
    <message>
        <source>Or&amp;iginal Pitch</source>
        <translation>&amp;Ursprüngliche Tonhöhe</translation>
    </message>
    <message>
        <source>Loud&amp;er</source>
        <translation>L&amp;auter</translation>
    </message>
    <message>
        <source>&amp;Quieter</source>
        <translation>&amp;Leiser</translation>
    </message>
    <message>
        <source>&amp;Song</source>
        <translation>&amp;Titel</translation>
    </message>
    <message>
        <source>&amp;Keep Speed and Pitch</source>
        <translation>Tempo und Tonhöhe &amp;merken</translation>
    </message>
    <message>
        <source>&amp;Forget Speed and Pitch</source>
        <translation>Tempo und Tonhöhe &amp;vergessen</translation>
    </message>
    <message>
        <source>&amp;Show Playing Song</source>
        <translation>Spielenden Titel &amp;zeigen</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Lyrabox</source>
        <translation>&amp;Lyrabox</translation>
    </message>
    <message>
        <source>&amp;Equalizer</source>
        <translation>&amp;Equalizer</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Tasten</translation>
    </message>
    <message>
        <source>&amp;Email Support…</source>
        <translation>&amp;E-Mail an den Support …</translation>
    </message>
    <message>
        <source>&amp;Website</source>
        <translation>&amp;Website</translation>
    </message>
    <message>
        <source>&amp;Check for Updates…</source>
        <translation>Nach &amp;Aktualisierungen suchen …</translation>
    </message>
    <message>
        <source>&amp;About Lyrabox</source>
        <translation>Ü&amp;ber Lyrabox</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Song &amp;List</source>
        <translation>&amp;Titelliste</translation>
    </message>
    <message>
        <source>Playlists and &amp;Folders</source>
        <translation>&amp;Listen und Ordner</translation>
    </message>
    <message>
        <source>&amp;Back 5 Seconds</source>
        <translation>5 Se&amp;kunden zurück</translation>
    </message>
    <message>
        <source>For&amp;ward 5 Seconds</source>
        <translation>5 Sekun&amp;den vor</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>Fenster &amp;schließen</translation>
    </message>
    <message>
        <source>&amp;Sort By</source>
        <translation>&amp;Sortieren nach</translation>
    </message>
    <message>
        <source>&amp;Playing</source>
        <translation>&amp;Spielt</translation>
    </message>
    <message>
        <source>&amp;Title</source>
        <translation>&amp;Titel</translation>
    </message>
    <message>
        <source>&amp;Artist</source>
        <translation>&amp;Interpret</translation>
    </message>
    <message>
        <source>A&amp;lbum</source>
        <translation>&amp;Album</translation>
    </message>
    <message>
        <source>T&amp;ime</source>
        <translation>&amp;Dauer</translation>
    </message>
    <message>
        <source>&amp;Kept Speed and Pitch</source>
        <translation>&amp;Gemerktes Tempo und Tonhöhe</translation>
    </message>
    <message>
        <source>&amp;Reverse Order</source>
        <translation>&amp;Umgekehrte Folge</translation>
    </message>
    <message>
        <source>&amp;Include Subfolders</source>
        <translation>Unter&amp;ordner einbeziehen</translation>
    </message>
    <message>
        <source>&amp;Own Order</source>
        <translation>&amp;Eigene Folge</translation>
    </message>
    <message>
        <source>&amp;Practice Pane</source>
        <translation>Üb&amp;ebereich</translation>
    </message>
    <message>
        <source>Pract&amp;ice</source>
        <translation>Übe&amp;n</translation>
    </message>
    <message>
        <source>&amp;Pedals and Keys…</source>
        <translation>&amp;Pedale und Tasten …</translation>
    </message>
    <message>
        <source>%1 &gt; %2</source>
        <translation>%1 &gt; %2</translation>
    </message>
</context>
<context>
    <name>lyrabox::MediaPlayerBridge</name>
    <message>
        <source>A song is playing</source>
        <translation>Ein Titel wird abgespielt</translation>
    </message>
</context>
<context>
    <name>lyrabox::MetronomeText</name>
    <message>
        <source>Tap the beat first: T</source>
        <translation>Zuerst den Takt tippen: T</translation>
    </message>
    <message>
        <source>Tap the beat first: T. Or make a loop and say how many bars it has.</source>
        <translation>Zuerst den Takt tippen: T. Oder eine Schleife setzen und angeben, wie viele Takte sie hat.</translation>
    </message>
</context>
<context>
    <name>lyrabox::NoteNames</name>
    <message>
        <source>C</source>
        <translation>C</translation>
    </message>
    <message>
        <source>D♭</source>
        <translation>Des</translation>
    </message>
    <message>
        <source>D</source>
        <translation>D</translation>
    </message>
    <message>
        <source>E♭</source>
        <translation>Es</translation>
    </message>
    <message>
        <source>E</source>
        <translation>E</translation>
    </message>
    <message>
        <source>F</source>
        <translation>F</translation>
    </message>
    <message>
        <source>F♯</source>
        <translation>Fis</translation>
    </message>
    <message>
        <source>G</source>
        <translation>G</translation>
    </message>
    <message>
        <source>A♭</source>
        <translation>As</translation>
    </message>
    <message>
        <source>A</source>
        <translation>A</translation>
    </message>
    <message>
        <source>B♭</source>
        <translation>B</translation>
    </message>
    <message>
        <source>B</source>
        <translation>H</translation>
    </message>
    <message>
        <source>C♯</source>
        <translation>Cis</translation>
    </message>
    <message>
        <source>D♯</source>
        <translation>Dis</translation>
    </message>
    <message>
        <source>G♯</source>
        <translation>Gis</translation>
    </message>
</context>
<context>
    <name>lyrabox::PaneDivider</name>
    <message>
        <source>Height of the practice pane</source>
        <translation>Höhe des Übebereichs</translation>
    </message>
</context>
<context>
    <name>lyrabox::PedalAssignments</name>
    <message>
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
</context>
<context>
    <name>lyrabox::PedalsWindow</name>
    <message>
        <source>Controller %1</source>
        <translation>Controller %1</translation>
    </message>
    <message>
        <source>Note %1</source>
        <translation>Note %1</translation>
    </message>
    <message>
        <source>Program %1</source>
        <translation>Programm %1</translation>
    </message>
    <message>
        <source>Pitch bend</source>
        <translation>Pitch-Bend</translation>
    </message>
    <message>
        <source>Pressure</source>
        <translation>Druck</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1, double tap</source>
        <translation>%1, Doppeltipp</translation>
    </message>
    <message>
        <source>%1, hold</source>
        <translation>%1, halten</translation>
    </message>
    <message>
        <source>Ready-Made Sets</source>
        <translation>Fertige Belegungen</translation>
    </message>
    <message>
        <source>Use It Here</source>
        <translation>Hier verwenden</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Pedals and Keys</source>
        <translation>Pedale und Tasten</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search commands</source>
        <translation>Befehle suchen</translation>
    </message>
    <message>
        <source>&amp;Two Switches (Controllers 64 and 67)</source>
        <translation>&amp;Zwei Schalter (Controller 64 und 67)</translation>
    </message>
    <message>
        <source>Two Switches and an &amp;Expression Pedal</source>
        <translation>Zwei Schalter und ein &amp;Expressionspedal</translation>
    </message>
    <message>
        <source>&amp;Page Turner: Page Up and Page Down</source>
        <translation>&amp;Blättergerät: Bild auf und Bild ab</translation>
    </message>
    <message>
        <source>Page Turner: &amp;Arrow Keys</source>
        <translation>Blättergerät: &amp;Pfeiltasten</translation>
    </message>
    <message>
        <source>Tap</source>
        <translation>Tippen</translation>
    </message>
    <message>
        <source>Double Tap</source>
        <translation>Doppeltipp</translation>
    </message>
    <message>
        <source>Hold</source>
        <translation>Halten</translation>
    </message>
    <message>
        <source>Gesture of a pedal</source>
        <translation>Geste eines Pedals</translation>
    </message>
    <message>
        <source>What the pedal or knob sends</source>
        <translation>Was das Pedal oder der Regler sendet</translation>
    </message>
    <message>
        <source>Positions (a pedal)</source>
        <translation>Stellungen (ein Pedal)</translation>
    </message>
    <message>
        <source>Steps: 1 and 127</source>
        <translation>Schritte: 1 und 127</translation>
    </message>
    <message>
        <source>Steps: 65 and 63</source>
        <translation>Schritte: 65 und 63</translation>
    </message>
    <message>
        <source>Steps: 1 and 65</source>
        <translation>Schritte: 1 und 65</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>%1 is no longer “%2”.</source>
        <translation>%1 ist nicht mehr „%2“.</translation>
    </message>
    <message>
        <source>Added: %1. Everything else stays as it was.</source>
        <translation>Hinzugefügt: %1. Alles andere bleibt, wie es war.</translation>
    </message>
    <message>
        <source>The assignments were made by a later version of Lyrabox. They cannot be changed here.</source>
        <translation>Die Belegungen stammen von einer späteren Version von Lyrabox. Sie können hier nicht geändert werden.</translation>
    </message>
    <message>
        <source>The assignments could not be written. They hold until Lyrabox ends.</source>
        <translation>Die Belegungen konnten nicht geschrieben werden. Sie gelten, bis Lyrabox beendet wird.</translation>
    </message>
    <message>
        <source>The file of assignments could not be read. It is kept under another name when you change something.</source>
        <translation>Die Datei der Belegungen konnte nicht gelesen werden. Sie wird unter anderem Namen aufbewahrt, wenn Sie etwas ändern.</translation>
    </message>
    <message>
        <source>Some assignments in the file were not understood. The file is kept under another name when you change something.</source>
        <translation>Einige Belegungen in der Datei wurden nicht verstanden. Die Datei wird unter anderem Namen aufbewahrt, wenn Sie etwas ändern.</translation>
    </message>
    <message>
        <source>Learn</source>
        <translation>Lernen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Plugged in: %1</source>
        <translation>Angeschlossen: %1</translation>
    </message>
    <message>
        <source>No MIDI device is plugged in.</source>
        <translation>Kein MIDI-Gerät ist angeschlossen.</translation>
    </message>
    <message>
        <source>MIDI devices are looked for while you learn, and while one is assigned.</source>
        <translation>MIDI-Geräte werden gesucht, während Sie lernen und solange eines belegt ist.</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeCommands</name>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Zoom to &amp;Loop</source>
        <translation>Auf die &amp;Schleife zoomen</translation>
    </message>
    <message>
        <source>&amp;Whole Song</source>
        <translation>Ganzer &amp;Titel</translation>
    </message>
    <message>
        <source>&amp;Follow</source>
        <translation>&amp;Folgen</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>A&amp;bspielen</translation>
    </message>
    <message>
        <source>&amp;Keep Loop</source>
        <translation>Schleife &amp;merken</translation>
    </message>
    <message>
        <source>Loop %1</source>
        <translation>Schleife %1</translation>
    </message>
    <message>
        <source>Play Loop</source>
        <translation>Schleife abspielen</translation>
    </message>
    <message>
        <source>&amp;Next Loop</source>
        <translation>&amp;Nächste Schleife</translation>
    </message>
    <message>
        <source>&amp;Previous Loop</source>
        <translation>&amp;Vorige Schleife</translation>
    </message>
    <message>
        <source>Play &amp;Selected</source>
        <translation>&amp;Auswahl abspielen</translation>
    </message>
    <message>
        <source>&amp;Marker</source>
        <translation>Mar&amp;ke</translation>
    </message>
    <message>
        <source>&amp;Add Marker</source>
        <translation>Marke &amp;setzen</translation>
    </message>
    <message>
        <source>Add Marker with &amp;Name…</source>
        <translation>Marke mit &amp;Namen setzen …</translation>
    </message>
    <message>
        <source>Ne&amp;xt Marker</source>
        <translation>Nä&amp;chste Marke</translation>
    </message>
    <message>
        <source>&amp;Previous Marker</source>
        <translation>&amp;Vorige Marke</translation>
    </message>
    <message>
        <source>10 ms &amp;Earlier</source>
        <translation>10 ms &amp;früher</translation>
    </message>
    <message>
        <source>10 ms &amp;Later</source>
        <translation>10 ms &amp;später</translation>
    </message>
    <message>
        <source>1 ms E&amp;arlier</source>
        <translation>1 ms f&amp;rüher</translation>
    </message>
    <message>
        <source>1 ms La&amp;ter</source>
        <translation>1 ms s&amp;päter</translation>
    </message>
    <message>
        <source>Move &amp;Start</source>
        <translation>&amp;Anfang verschieben</translation>
    </message>
    <message>
        <source>Move &amp;Loop</source>
        <translation>&amp;Schleife verschieben</translation>
    </message>
    <message>
        <source>&amp;Tidy Loop</source>
        <translation>Schleife &amp;zurechtrücken</translation>
    </message>
    <message>
        <source>Second &amp;Half</source>
        <translation>Zweite &amp;Hälfte</translation>
    </message>
    <message>
        <source>Twice as Lon&amp;g</source>
        <translation>&amp;Doppelt so lang</translation>
    </message>
    <message>
        <source>Keep Speed and P&amp;itch with Loop</source>
        <translation>&amp;Tempo und Tonhöhe zur Schleife merken</translation>
    </message>
    <message>
        <source>&amp;Forget Speed and Pitch of Loop</source>
        <translation>Tempo und Tonhöhe der Schleife &amp;vergessen</translation>
    </message>
    <message>
        <source>&amp;Rename…</source>
        <translation>&amp;Umbenennen …</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Red&amp;o</source>
        <translation>Wiederh&amp;olen</translation>
    </message>
    <message>
        <source>&amp;Wave</source>
        <translation>&amp;Welle</translation>
    </message>
    <message>
        <source>&amp;Beats</source>
        <translation>Taktschlä&amp;ge</translation>
    </message>
    <message>
        <source>&amp;Tap Beat</source>
        <translation>Takt &amp;tippen</translation>
    </message>
    <message>
        <source>&amp;Use Suggestion</source>
        <translation>&amp;Vorschlag übernehmen</translation>
    </message>
    <message>
        <source>&amp;Half the Tempo</source>
        <translation>&amp;Halbes Tempo</translation>
    </message>
    <message>
        <source>T&amp;wice the Tempo</source>
        <translation>&amp;Doppeltes Tempo</translation>
    </message>
    <message>
        <source>Three Hal&amp;ves of the Tempo</source>
        <translation>A&amp;nderthalbfaches Tempo</translation>
    </message>
    <message>
        <source>Bars One Beat &amp;Earlier</source>
        <translation>Takte einen Schlag &amp;früher</translation>
    </message>
    <message>
        <source>Bars One Beat &amp;Later</source>
        <translation>Takte einen Schlag &amp;später</translation>
    </message>
    <message>
        <source>Beat at the Line 10 ms E&amp;arlier</source>
        <translation>Schlag an der Linie 10 ms f&amp;rüher</translation>
    </message>
    <message>
        <source>Beat at the Line 10 ms Late&amp;r</source>
        <translation>Schlag an der Linie 10 ms s&amp;päter</translation>
    </message>
    <message>
        <source>&amp;Clear Beats</source>
        <translation>Takts&amp;chläge löschen</translation>
    </message>
    <message>
        <source>&amp;Click and Count-in</source>
        <translation>Kli&amp;ck und Einzähler</translation>
    </message>
    <message>
        <source>&amp;Click</source>
        <translation>&amp;Klick</translation>
    </message>
    <message>
        <source>Count-&amp;in</source>
        <translation>E&amp;inzähler</translation>
    </message>
    <message>
        <source>Click &amp;Settings…</source>
        <translation>Klick&amp;einstellungen …</translation>
    </message>
    <message>
        <source>Count-in S&amp;ettings…</source>
        <translation>Einzähleinste&amp;llungen …</translation>
    </message>
    <message>
        <source>Histor&amp;y…</source>
        <translation>Verlau&amp;f …</translation>
    </message>
    <message>
        <source>One Beat or 100 ms Earl&amp;ier</source>
        <translation>Einen Schlag oder 100 ms frü&amp;her</translation>
    </message>
    <message>
        <source>One Beat or 100 ms Late&amp;r</source>
        <translation>Einen Schlag oder 100 ms spä&amp;ter</translation>
    </message>
    <message>
        <source>%1 by 10 ms (with Alt 1 ms, with Shift a beat)</source>
        <translation>%1 um 10 ms (mit Alt 1 ms, mit Umschalt ein Schlag)</translation>
    </message>
    <message>
        <source>Tr&amp;ainer</source>
        <translation>Trai&amp;ner</translation>
    </message>
    <message>
        <source>&amp;Train Loop</source>
        <translation>Schleife &amp;trainieren</translation>
    </message>
    <message>
        <source>&amp;Rotate Loops</source>
        <translation>Schleifen &amp;abwechseln</translation>
    </message>
    <message>
        <source>Pass &amp;Missed</source>
        <translation>Durchgang &amp;misslungen</translation>
    </message>
    <message>
        <source>Pass R&amp;ight</source>
        <translation>Durchgang &amp;richtig</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>E&amp;xportieren …</translation>
    </message>
    <message>
        <source>Mo&amp;ve End</source>
        <translation>&amp;Ende verschieben</translation>
    </message>
    <message>
        <source>Sou&amp;nd</source>
        <translation>Klangb&amp;ild</translation>
    </message>
    <message>
        <source>&amp;Centre</source>
        <translation>&amp;Mitte</translation>
    </message>
    <message>
        <source>Hear the &amp;Original</source>
        <translation>&amp;Original anhören</translation>
    </message>
    <message>
        <source>&amp;Tune to My A</source>
        <translation>Auf mein A &amp;stimmen</translation>
    </message>
    <message>
        <source>&amp;Both Channels</source>
        <translation>&amp;Beide Kanäle</translation>
    </message>
    <message>
        <source>&amp;Mono</source>
        <translation>Mo&amp;no</translation>
    </message>
    <message>
        <source>Only the &amp;Left Channel</source>
        <translation>Nur &amp;linker Kanal</translation>
    </message>
    <message>
        <source>Only the &amp;Right Channel</source>
        <translation>Nur &amp;rechter Kanal</translation>
    </message>
    <message>
        <source>Channels &amp;Swapped</source>
        <translation>Kanäle &amp;vertauscht</translation>
    </message>
    <message>
        <source>&amp;Normal Sound</source>
        <translation>Normaler &amp;Klang</translation>
    </message>
    <message>
        <source>Stand View (&amp;Q)</source>
        <translation>Pultansicht (&amp;Q)</translation>
    </message>
    <message>
        <source>E&amp;xchange</source>
        <translation>&amp;Übungsdateien</translation>
    </message>
    <message>
        <source>&amp;Share Practice…</source>
        <translation>Übung &amp;weitergeben…</translation>
    </message>
    <message>
        <source>Share as &amp;Label Track…</source>
        <translation>Als &amp;Textmarken weitergeben…</translation>
    </message>
    <message>
        <source>&amp;Open Practice…</source>
        <translation>Übung ö&amp;ffnen…</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeExport</name>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>“%1” could not be exported.</source>
        <translation>„%1“ konnte nicht exportiert werden.</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeFooter</name>
    <message>
        <source>The loops of this song cannot be read. The next change keeps the old file under another name.</source>
        <translation>Die Schleifen dieses Titels sind nicht lesbar. Die nächste Änderung behält die alte Datei unter anderem Namen.</translation>
    </message>
    <message>
        <source>Some loops or markers of this song cannot be read. The next change keeps the old file under another name.</source>
        <translation>Manche Schleifen oder Marken dieses Titels sind nicht lesbar. Die nächste Änderung behält die alte Datei unter anderem Namen.</translation>
    </message>
    <message>
        <source>A later version of Lyrabox made these loops. They cannot be changed here.</source>
        <translation>Eine spätere Version von Lyrabox hat diese Schleifen angelegt. Hier sind sie nicht änderbar.</translation>
    </message>
    <message>
        <source>Loops and markers cannot be written to the disk. They are lost when Lyrabox ends.</source>
        <translation>Schleifen und Marken lassen sich nicht speichern. Sie gehen verloren, wenn Lyrabox endet.</translation>
    </message>
    <message>
        <source>Another program has changed the loops of this song, too. Its file was kept under another name.</source>
        <translation>Auch ein anderes Programm hat die Schleifen dieses Titels geändert. Seine Datei liegt unter anderem Namen.</translation>
    </message>
    <message>
        <source>Recognising the song…</source>
        <translation>Titel wird erkannt …</translation>
    </message>
    <message>
        <source>The practice history cannot be written to the disk. What is added to it is lost when Lyrabox ends.</source>
        <translation>Der Übungsverlauf lässt sich nicht speichern. Was hinzukommt, geht verloren, wenn Lyrabox endet.</translation>
    </message>
    <message>
        <source>Some lines of the practice history cannot be read and are left out.</source>
        <translation>Manche Zeilen des Übungsverlaufs sind nicht lesbar und werden ausgelassen.</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeLane</name>
    <message>
        <source>Loops and markers above the wave</source>
        <translation>Schleifen und Marken über der Welle</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticePages</name>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>%1 •</source>
        <translation>%1 •</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticePane</name>
    <message>
        <source>Songs</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Practice</source>
        <translation>Üben</translation>
    </message>
    <message>
        <source>Shown part</source>
        <translation>Angezeigter Teil</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Schleife</translation>
    </message>
    <message>
        <source>Play a song to see its wave.</source>
        <translation>Ein Titel zeigt seine Welle, sobald er spielt.</translation>
    </message>
    <message>
        <source>Drag across the wave to make a loop.</source>
        <translation>Für eine Schleife über die Welle ziehen.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Press K to keep this loop.</source>
        <translation>K behält diese Schleife.</translation>
    </message>
    <message>
        <source>Loops</source>
        <translation>Schleifen</translation>
    </message>
    <message>
        <source>Trainer</source>
        <translation>Trainer</translation>
    </message>
    <message>
        <source>Missed</source>
        <translation>Misslungen</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Richtig</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Abwechseln</translation>
    </message>
    <message>
        <source>Beat</source>
        <translation>Takt</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Klang</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeSharing</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Use Them</source>
        <translation>Verwenden</translation>
    </message>
    <message>
        <source>Not This Song</source>
        <translation>Nicht dieser Titel</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>1 loop</source>
        <translation>1 Schleife</translation>
    </message>
    <message>
        <source>%1 loops</source>
        <translation>%1 Schleifen</translation>
    </message>
    <message>
        <source>1 marker</source>
        <translation>1 Marke</translation>
    </message>
    <message>
        <source>%1 markers</source>
        <translation>%1 Marken</translation>
    </message>
    <message>
        <source>the beats</source>
        <translation>die Taktschläge</translation>
    </message>
    <message>
        <source>Nothing was added.</source>
        <translation>Nichts wurde hinzugefügt.</translation>
    </message>
    <message>
        <source>Added: %1.</source>
        <translation>Hinzugefügt: %1.</translation>
    </message>
    <message>
        <source>Here already: %1.</source>
        <translation>Schon vorhanden: %1.</translation>
    </message>
    <message>
        <source>No room for %1 more.</source>
        <translation>Kein Platz für %1 weitere.</translation>
    </message>
    <message>
        <source>These loops were made for another copy of this song.</source>
        <translation>Diese Schleifen wurden für eine andere Kopie dieses Titels gemacht.</translation>
    </message>
    <message>
        <source>Moved by %1.</source>
        <translation>Verschoben um %1.</translation>
    </message>
    <message>
        <source>Some entries of the file were left out.</source>
        <translation>Einige Einträge der Datei wurden ausgelassen.</translation>
    </message>
    <message>
        <source>For “%1”: %2</source>
        <translation>Für „%1“: %2</translation>
    </message>
    <message>
        <source>Use these loops for “%1”?</source>
        <translation>Diese Schleifen für „%1“ verwenden?</translation>
    </message>
    <message>
        <source>These loops are for “%1”. Use them for “%2”?</source>
        <translation>Diese Schleifen sind für „%1“. Für „%2“ verwenden?</translation>
    </message>
    <message>
        <source>“%1” cannot be read.</source>
        <translation>„%1“ kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>“%1” is too large for a practice file.</source>
        <translation>„%1“ ist zu groß für eine Übungsdatei.</translation>
    </message>
    <message>
        <source>“%1” was made by a later version of Lyrabox.</source>
        <translation>„%1“ wurde von einer neueren Version von Lyrabox gemacht.</translation>
    </message>
    <message>
        <source>“%1” is neither a practice file nor a label track.</source>
        <translation>„%1“ ist weder eine Übungsdatei noch eine Textmarken-Datei.</translation>
    </message>
    <message>
        <source>“%1” has no loops and no markers.</source>
        <translation>„%1“ hat keine Schleifen und keine Marken.</translation>
    </message>
    <message>
        <source>Play the song that “%1” is for, and open the file again.</source>
        <translation>Den Titel abspielen, für den „%1“ ist, und die Datei noch einmal öffnen.</translation>
    </message>
    <message>
        <source>The loops of this song cannot be changed, or there is no room for so many.</source>
        <translation>Die Schleifen dieses Titels können nicht geändert werden, oder für so viele ist kein Platz.</translation>
    </message>
    <message>
        <source>“%1” cannot be written.</source>
        <translation>„%1“ kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>“%1” was written.</source>
        <translation>„%1“ wurde geschrieben.</translation>
    </message>
    <message>
        <source>Share as Label Track</source>
        <translation>Als Textmarken weitergeben</translation>
    </message>
    <message>
        <source>Share Practice</source>
        <translation>Übung weitergeben</translation>
    </message>
    <message>
        <source>Label tracks (*.txt)</source>
        <translation>Textmarken (*.txt)</translation>
    </message>
    <message>
        <source>Practice files (*.json)</source>
        <translation>Übungsdateien (*.json)</translation>
    </message>
    <message>
        <source>Open Practice</source>
        <translation>Übung öffnen</translation>
    </message>
    <message>
        <source>Practice files and label tracks (*.json *.txt)</source>
        <translation>Übungsdateien und Textmarken (*.json *.txt)</translation>
    </message>
</context>
<context>
    <name>lyrabox::ProgressPanel</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
</context>
<context>
    <name>lyrabox::RotationBox</name>
    <message>
        <source>Unit of a turn</source>
        <translation>Einheit einer Runde</translation>
    </message>
    <message>
        <source>passes</source>
        <translation>Durchgänge</translation>
    </message>
    <message>
        <source>minutes</source>
        <translation>Minuten</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Abwechslung</translation>
    </message>
    <message>
        <source>Loops take turns, in shuffled order. Without a tick, all do.</source>
        <translation>Schleifen wechseln sich in gemischter Folge ab. Ohne Häkchen alle.</translation>
    </message>
    <message>
        <source>Each for</source>
        <translation>Jede</translation>
    </message>
    <message>
        <source>Length of a turn</source>
        <translation>Länge einer Runde</translation>
    </message>
    <message>
        <source>Loop %1</source>
        <translation>Schleife %1</translation>
    </message>
</context>
<context>
    <name>lyrabox::SUUpdater</name>
    <message>
        <source>Lyrabox is up to date.</source>
        <translation>Lyrabox ist auf dem neuesten Stand.</translation>
    </message>
    <message>
        <source>Version %1 is the newest there is.</source>
        <translation>Version %1 ist die neueste.</translation>
    </message>
    <message>
        <source>This version was built without an address to ask.</source>
        <translation>Diese Version kennt keine Adresse, bei der sie fragen könnte.</translation>
    </message>
    <message>
        <source>The address for updates leads to a connection that is not secure.</source>
        <translation>Die Adresse für Aktualisierungen führt zu einer unsicheren Verbindung.</translation>
    </message>
    <message>
        <source>The answer was too large.</source>
        <translation>Die Antwort war zu groß.</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>Der Server hat nicht rechtzeitig geantwortet.</translation>
    </message>
    <message>
        <source>The answer could not be understood.</source>
        <translation>Die Antwort war nicht zu verstehen.</translation>
    </message>
    <message>
        <source>Lyrabox could not check for updates.</source>
        <translation>Lyrabox konnte nicht nach Aktualisierungen suchen.</translation>
    </message>
</context>
<context>
    <name>lyrabox::SearchField</name>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Cancel search</source>
        <translation>Suche abbrechen</translation>
    </message>
</context>
<context>
    <name>lyrabox::SnapButton</name>
    <message>
        <source>Beat</source>
        <translation>Schlag</translation>
    </message>
    <message>
        <source>Attack</source>
        <translation>Anschlag</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>What the ends of loops, and markers, snap to when they are dragged. With Shift they don&apos;t.</source>
        <translation>Worauf die Enden von Schleifen und Marken beim Ziehen einrasten. Mit Umschalt rasten sie nicht ein.</translation>
    </message>
    <message>
        <source>Snap: %1</source>
        <translation>Einrasten: %1</translation>
    </message>
</context>
<context>
    <name>lyrabox::SoundPage</name>
    <message>
        <source>Original</source>
        <translation>Original</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>Beide</translation>
    </message>
    <message>
        <source>Mono</source>
        <translation>Mono</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Swap</source>
        <translation>Tausch</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Kanäle</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>Balance</translation>
    </message>
    <message>
        <source>Balance, -100 is left, 100 is right</source>
        <translation>Balance, -100 ist links, 100 ist rechts</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Centre, -100 is without the middle, 100 is only the middle</source>
        <translation>Mitte, -100 ist ohne die Mitte, 100 ist nur die Mitte</translation>
    </message>
    <message>
        <source>Limits of the middle</source>
        <translation>Grenzen der Mitte</translation>
    </message>
    <message>
        <source>The frequency of my A in Hz</source>
        <translation>Frequenz meines Kammertons A in Hz</translation>
    </message>
    <message>
        <source>My instrument</source>
        <translation>Mein Instrument</translation>
    </message>
    <message>
        <source>Tune to A =</source>
        <translation>Stimmen: A =</translation>
    </message>
    <message>
        <source>This song is mono: it has nothing but a middle.</source>
        <translation>Dieser Song ist mono: Er hat nur eine Mitte.</translation>
    </message>
    <message>
        <source>Works on what was mixed into the middle.</source>
        <translation>Wirkt auf das in die Mitte Gemischte.</translation>
    </message>
    <message>
        <source>Listening to the song …</source>
        <translation>Der Song wird angehört …</translation>
    </message>
    <message>
        <source>Tuning: not clear</source>
        <translation>Stimmung: nicht eindeutig</translation>
    </message>
    <message>
        <source>Key: not clear</source>
        <translation>Tonart: nicht eindeutig</translation>
    </message>
</context>
<context>
    <name>lyrabox::SoundWords</name>
    <message>
        <source>Drifts: %1 to %2 cents flat (A = %3 to %4)</source>
        <translation>Schwankt: %1 bis %2 Cent zu tief (A = %3 bis %4)</translation>
    </message>
    <message>
        <source>Drifts: %1 to %2 cents sharp (A = %3 to %4)</source>
        <translation>Schwankt: %1 bis %2 Cent zu hoch (A = %3 bis %4)</translation>
    </message>
    <message>
        <source>Drifts: %1 cents flat to %2 cents sharp (A = %3 to %4)</source>
        <translation>Schwankt: %1 Cent zu tief bis %2 Cent zu hoch (A = %3 bis %4)</translation>
    </message>
    <message>
        <source>In tune (A = %1)</source>
        <translation>Stimmt (A = %1)</translation>
    </message>
    <message>
        <source>1 cent flat (A = %1)</source>
        <translation>1 Cent zu tief (A = %1)</translation>
    </message>
    <message>
        <source>1 cent sharp (A = %1)</source>
        <translation>1 Cent zu hoch (A = %1)</translation>
    </message>
    <message>
        <source>%1 cents flat (A = %2)</source>
        <translation>%1 Cent zu tief (A = %2)</translation>
    </message>
    <message>
        <source>%1 cents sharp (A = %2)</source>
        <translation>%1 Cent zu hoch (A = %2)</translation>
    </message>
    <message>
        <source>%1 minor</source>
        <translation>%1-Moll</translation>
    </message>
    <message>
        <source>%1 major</source>
        <translation>%1-Dur</translation>
    </message>
    <message>
        <source>%1 (or %2)</source>
        <translation>%1 (oder %2)</translation>
    </message>
    <message>
        <source>Capo %1</source>
        <translation>Kapo %1</translation>
    </message>
    <message>
        <source>in %1</source>
        <translation>in %1</translation>
    </message>
</context>
<context>
    <name>lyrabox::SpeedPlot</name>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>From %1 on %2 to %3 on %4; the best is %5</source>
        <translation>Von %1 am %2 bis %3 am %4; das beste ist %5</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>lyrabox::SplitView</name>
    <message>
        <source>Divider</source>
        <translation>Teiler</translation>
    </message>
</context>
<context>
    <name>lyrabox::StandText</name>
    <message>
        <source>Count-in: 1 beat</source>
        <translation>Einzähler: 1 Schlag</translation>
    </message>
    <message>
        <source>Count-in: %1 beats</source>
        <translation>Einzähler: %1 Schläge</translation>
    </message>
    <message>
        <source>Count-in: 1 bar</source>
        <translation>Einzähler: 1 Takt</translation>
    </message>
    <message>
        <source>Count-in: %1 bars</source>
        <translation>Einzähler: %1 Takte</translation>
    </message>
    <message>
        <source>Bar</source>
        <translation>Takt</translation>
    </message>
    <message>
        <source>Count-in</source>
        <translation>Einzähler</translation>
    </message>
    <message>
        <source>Rest</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Play a song.</source>
        <translation>Kein Titel spielt.</translation>
    </message>
</context>
<context>
    <name>lyrabox::StandView</name>
    <message>
        <source>Stand View</source>
        <translation>Pultansicht</translation>
    </message>
    <message>
        <source>Escape or F11: back to Lyrabox</source>
        <translation>Esc oder F11: zurück zu Lyrabox</translation>
    </message>
</context>
<context>
    <name>lyrabox::TempoReadout</name>
    <message>
        <source>Type a tempo</source>
        <translation>Ein Tempo eingeben</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source> BPM</source>
        <translation> BPM</translation>
    </message>
    <message>
        <source>%1 BPM</source>
        <translation>%1 BPM</translation>
    </message>
    <message>
        <source>tap %1 of %2</source>
        <translation>Schlag %1 von %2</translation>
    </message>
    <message>
        <source>at %1 % · song %2 · %3/4</source>
        <translation>bei %1 % · Song %2 · %3/4</translation>
    </message>
    <message>
        <source>Tempo: %1, %2</source>
        <translation>Tempo: %1, %2</translation>
    </message>
    <message>
        <source>about %1 BPM</source>
        <translation>etwa %1 BPM</translation>
    </message>
    <message>
        <source>at %1 % of %2</source>
        <translation>bei %1 % von %2</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrackTableModel</name>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Spielt</translation>
    </message>
    <message>
        <source>Has settings</source>
        <translation>Hat Einstellungen</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrainerLadder</name>
    <message>
        <source>%1, present speed</source>
        <translation>%1, jetziges Tempo</translation>
    </message>
    <message>
        <source>%1, played</source>
        <translation>%1, gespielt</translation>
    </message>
    <message>
        <source>Go on at %1</source>
        <translation>Mit %1 weiter</translation>
    </message>
    <message>
        <source>Ladder</source>
        <translation>Leiter</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrainerPage</name>
    <message>
        <source>First speed</source>
        <translation>Erstes Tempo</translation>
    </message>
    <message>
        <source>to</source>
        <translation>bis</translation>
    </message>
    <message>
        <source>Last speed</source>
        <translation>Letztes Tempo</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Speeds</source>
        <translation>Tempi</translation>
    </message>
    <message>
        <source>Size of a step</source>
        <translation>Größe einer Stufe</translation>
    </message>
    <message>
        <source>Way through the speeds</source>
        <translation>Weg durch die Tempi</translation>
    </message>
    <message>
        <source>One speed</source>
        <translation>Ein Tempo</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Aufwärts</translation>
    </message>
    <message>
        <source>Two up, one down</source>
        <translation>Zwei auf, eine ab</translation>
    </message>
    <message>
        <source>Up and back</source>
        <translation>Auf und ab</translation>
    </message>
    <message>
        <source>Steps</source>
        <translation>Stufen</translation>
    </message>
    <message>
        <source>Passes at each speed</source>
        <translation>Durchgänge je Tempo</translation>
    </message>
    <message>
        <source>How passes add up</source>
        <translation>Wie Durchgänge zählen</translation>
    </message>
    <message>
        <source>in a row</source>
        <translation>in Folge</translation>
    </message>
    <message>
        <source>in all</source>
        <translation>insgesamt</translation>
    </message>
    <message>
        <source>Passes</source>
        <translation>Durchgänge</translation>
    </message>
    <message>
        <source>On a miss</source>
        <translation>Bei Fehler</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Bleiben</translation>
    </message>
    <message>
        <source>One step down</source>
        <translation>Eine Stufe ab</translation>
    </message>
    <message>
        <source>Two steps down</source>
        <translation>Zwei Stufen ab</translation>
    </message>
    <message>
        <source>To the first speed</source>
        <translation>Zum ersten Tempo</translation>
    </message>
    <message>
        <source>At the top</source>
        <translation>Am Ziel</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Next loop</source>
        <translation>Nächste Schleife</translation>
    </message>
    <message>
        <source>From the start</source>
        <translation>Von vorn</translation>
    </message>
    <message>
        <source>10 % more</source>
        <translation>10 % mehr</translation>
    </message>
    <message>
        <source>What counts</source>
        <translation>Was zählt</translation>
    </message>
    <message>
        <source>All but the missed</source>
        <translation>Alle außer misslungene</translation>
    </message>
    <message>
        <source>Only the right ones</source>
        <translation>Nur richtige</translation>
    </message>
    <message>
        <source>Counts</source>
        <translation>Es zählen</translation>
    </message>
    <message>
        <source>Before a pass</source>
        <translation>Vor einem Durchgang</translation>
    </message>
    <message>
        <source>Nothing</source>
        <translation>Nichts</translation>
    </message>
    <message>
        <source>Count-in</source>
        <translation>Einzähler</translation>
    </message>
    <message>
        <source>Run-up</source>
        <translation>Anlauf</translation>
    </message>
    <message>
        <source>Rest</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Beats before a pass</source>
        <translation>Schläge vor einem Durchgang</translation>
    </message>
    <message>
        <source>beats</source>
        <translation>Schläge</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Davor</translation>
    </message>
    <message>
        <source>When to count in</source>
        <translation>Wann eingezählt wird</translation>
    </message>
    <message>
        <source>At the start</source>
        <translation>Am Anfang</translation>
    </message>
    <message>
        <source>At a new speed</source>
        <translation>Bei neuem Tempo</translation>
    </message>
    <message>
        <source>Before every pass</source>
        <translation>Vor jedem Durchgang</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>This ladder needs the song&apos;s beats.</source>
        <translation>Diese Leiter braucht die Schläge des Titels.</translation>
    </message>
    <message>
        <source>Make a loop to train it.</source>
        <translation>Legen Sie zum Trainieren eine Schleife an.</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrainerWords</name>
    <message>
        <source>this pass is missed</source>
        <translation>dieser Durchgang ist misslungen</translation>
    </message>
    <message>
        <source>this pass is right</source>
        <translation>dieser Durchgang ist richtig</translation>
    </message>
    <message>
        <source>slower</source>
        <translation>langsamer</translation>
    </message>
    <message>
        <source>missed</source>
        <translation>misslungen</translation>
    </message>
    <message>
        <source>at the top</source>
        <translation>am Ziel</translation>
    </message>
    <message>
        <source>%1 BPM</source>
        <translation>%1 BPM</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>pass %1 of %2</source>
        <translation>Durchgang %1 von %2</translation>
    </message>
    <message>
        <source>next %1</source>
        <translation>dann %1</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>lyrabox::WaveView</name>
    <message>
        <source>%1, loop from %2 to %3</source>
        <translation>%1, Schleife von %2 bis %3</translation>
    </message>
    <message>
        <source>Wave</source>
        <translation>Welle</translation>
    </message>
    <message>
        <source>%1, bar %2</source>
        <translation>%1, Takt %2</translation>
    </message>
    <message>
        <source>tap here, too</source>
        <translation>hier auch tippen</translation>
    </message>
</context>
<context>
    <name>lyrabox::WeekBars</name>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1 h</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 h %2 min</translation>
    </message>
    <message>
        <source>%1 in the week of %2</source>
        <translation>%1 in der Woche vom %2</translation>
    </message>
    <message>
        <source>Week of %1: %2</source>
        <translation>Woche vom %1: %2</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Lyrabox is running already but does not answer.</source>
        <translation>Lyrabox läuft bereits, antwortet aber nicht.</translation>
    </message>
</context>
</TS>
