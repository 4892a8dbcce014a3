<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AddPopover</name>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
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
        <translation>Choisir un dossier à ajouter</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Dossiers</translation>
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
        <translation>Utilisation : lyrabox [options] [fichiers, dossiers ou URL file:]

Les fichiers audio deviennent la liste des morceaux et le premier est joué. Les
dossiers sont ajoutés à la liste des dossiers. Si le programme est déjà ouvert,
il reçoit les deux.

Options :
  -h, --help     afficher cette aide
  -v, --version  afficher la version
  --             la suite ne contient que des fichiers et des dossiers
</translation>
    </message>
</context>
<context>
    <name>EmptyListText</name>
    <message>
        <source>This folder cannot be read.</source>
        <translation>Ce dossier ne peut pas être lu.</translation>
    </message>
    <message>
        <source>No songs here.</source>
        <translation>Aucun morceau ici.</translation>
    </message>
    <message>
        <source>No songs here. Open the folder with its arrow: 1 folder inside.</source>
        <translation>Aucun morceau ici. Ouvrez le dossier avec sa flèche : il contient 1 dossier.</translation>
    </message>
    <message numerus="yes">
        <source>No songs here. Open the folder with its arrow: %Ln folders inside.</source>
        <translation>
            <numerusform>Aucun morceau ici. Ouvrez le dossier avec sa flèche : il contient %Ln dossier.</numerusform>
            <numerusform>Aucun morceau ici. Ouvrez le dossier avec sa flèche : il contient %Ln dossiers.</numerusform>
        </translation>
    </message>
    <message>
        <source>Nothing matches &apos;%1&apos;.</source>
        <translation>Rien ne correspond à « %1 ».</translation>
    </message>
    <message>
        <source>Stopped before a song was read.</source>
        <translation>Arrêté avant la lecture d’un morceau.</translation>
    </message>
    <message>
        <source>Choose a playlist or folder</source>
        <translation>Choisissez une liste ou un dossier</translation>
    </message>
    <message>
        <source>This playlist has no songs.</source>
        <translation>Cette liste n’a aucun morceau.</translation>
    </message>
    <message>
        <source>No songs here or in the folders inside.</source>
        <translation>Aucun morceau ici ni dans les sous-dossiers.</translation>
    </message>
</context>
<context>
    <name>EqualizerWindow</name>
    <message>
        <source>Equalizer</source>
        <translation>Égaliseur</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Préréglages</translation>
    </message>
    <message>
        <source>Add or remove a preset</source>
        <translation>Ajouter ou supprimer un préréglage</translation>
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
        <translation>Niveau à 31,5 hertz</translation>
    </message>
    <message>
        <source>Level at 63 hertz</source>
        <translation>Niveau à 63 hertz</translation>
    </message>
    <message>
        <source>Level at 125 hertz</source>
        <translation>Niveau à 125 hertz</translation>
    </message>
    <message>
        <source>Level at 250 hertz</source>
        <translation>Niveau à 250 hertz</translation>
    </message>
    <message>
        <source>Level at 500 hertz</source>
        <translation>Niveau à 500 hertz</translation>
    </message>
    <message>
        <source>Level at 1 kilohertz</source>
        <translation>Niveau à 1 kilohertz</translation>
    </message>
    <message>
        <source>Level at 2 kilohertz</source>
        <translation>Niveau à 2 kilohertz</translation>
    </message>
    <message>
        <source>Level at 4 kilohertz</source>
        <translation>Niveau à 4 kilohertz</translation>
    </message>
    <message>
        <source>Level at 8 kilohertz</source>
        <translation>Niveau à 8 kilohertz</translation>
    </message>
    <message>
        <source>Level at 16 kilohertz</source>
        <translation>Niveau à 16 kilohertz</translation>
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
        <translation>Niveau à 31,5 hertz en décibels</translation>
    </message>
    <message>
        <source>Level at 63 hertz in decibels</source>
        <translation>Niveau à 63 hertz en décibels</translation>
    </message>
    <message>
        <source>Level at 125 hertz in decibels</source>
        <translation>Niveau à 125 hertz en décibels</translation>
    </message>
    <message>
        <source>Level at 250 hertz in decibels</source>
        <translation>Niveau à 250 hertz en décibels</translation>
    </message>
    <message>
        <source>Level at 500 hertz in decibels</source>
        <translation>Niveau à 500 hertz en décibels</translation>
    </message>
    <message>
        <source>Level at 1 kilohertz in decibels</source>
        <translation>Niveau à 1 kilohertz en décibels</translation>
    </message>
    <message>
        <source>Level at 2 kilohertz in decibels</source>
        <translation>Niveau à 2 kilohertz en décibels</translation>
    </message>
    <message>
        <source>Level at 4 kilohertz in decibels</source>
        <translation>Niveau à 4 kilohertz en décibels</translation>
    </message>
    <message>
        <source>Level at 8 kilohertz in decibels</source>
        <translation>Niveau à 8 kilohertz en décibels</translation>
    </message>
    <message>
        <source>Level at 16 kilohertz in decibels</source>
        <translation>Niveau à 16 kilohertz en décibels</translation>
    </message>
    <message>
        <source>Steps at 31.5 hertz</source>
        <translation>Pas à 31,5 hertz</translation>
    </message>
    <message>
        <source>Steps at 63 hertz</source>
        <translation>Pas à 63 hertz</translation>
    </message>
    <message>
        <source>Steps at 125 hertz</source>
        <translation>Pas à 125 hertz</translation>
    </message>
    <message>
        <source>Steps at 250 hertz</source>
        <translation>Pas à 250 hertz</translation>
    </message>
    <message>
        <source>Steps at 500 hertz</source>
        <translation>Pas à 500 hertz</translation>
    </message>
    <message>
        <source>Steps at 1 kilohertz</source>
        <translation>Pas à 1 kilohertz</translation>
    </message>
    <message>
        <source>Steps at 2 kilohertz</source>
        <translation>Pas à 2 kilohertz</translation>
    </message>
    <message>
        <source>Steps at 4 kilohertz</source>
        <translation>Pas à 4 kilohertz</translation>
    </message>
    <message>
        <source>Steps at 8 kilohertz</source>
        <translation>Pas à 8 kilohertz</translation>
    </message>
    <message>
        <source>Steps at 16 kilohertz</source>
        <translation>Pas à 16 kilohertz</translation>
    </message>
    <message>
        <source>Levels</source>
        <translation>Niveaux</translation>
    </message>
</context>
<context>
    <name>HelpText</name>
    <message>
        <source>Version %1
A music-practice player.
Free software under the GNU General Public License, version 3 or later.</source>
        <translation>Version %1
Un lecteur pour travailler la musique.
Logiciel libre sous la licence publique générale GNU, version 3 ou ultérieure.</translation>
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
        <translation>Espace : lecture ou pause
Gauche, Droite : une pression passe au morceau précédent ou suivant ; maintenir parcourt le morceau
Maj+Gauche, Maj+Droite : 5 secondes en arrière et en avant
L : marquer le début d’une boucle, puis sa fin, puis l’effacer
- et = : moins vite et plus vite ; 0 : vitesse normale
[ et ] : un demi-ton plus bas et plus haut ; \ : hauteur d’origine
Ctrl+Haut, Ctrl+Bas : volume
Entrée : lire le morceau sélectionné
Ctrl+S : garder la vitesse et la hauteur du morceau
Ctrl+F : rechercher
Ctrl+L, Ctrl+B : la liste des morceaux, les listes et dossiers
Suppr, Inser : retirer un dossier ou un préréglage, ajouter un préréglage
Tabulation et flèches : toutes les autres commandes
Ctrl+1, Ctrl+2 : la fenêtre principale, l’égaliseur</translation>
    </message>
    <message>
        <source>%1: the practice pane; while it is open:</source>
        <translation>%1 : le panneau de travail ; tant qu’il est ouvert :</translation>
    </message>
    <message>
        <source>%1: pedals and keys</source>
        <translation>%1 : pédales et touches</translation>
    </message>
</context>
<context>
    <name>LB_AudioController</name>
    <message>
        <source>Lyrabox cannot build its audio system. (Error %1)</source>
        <translation>Lyrabox ne peut pas créer son système audio. (Erreur %1)</translation>
    </message>
    <message>
        <source>The program will now terminate</source>
        <translation>Le programme va se fermer</translation>
    </message>
    <message>
        <source>No sound: the sound server does not answer</source>
        <translation>Pas de son : le serveur de son ne répond pas</translation>
    </message>
</context>
<context>
    <name>LB_EqualizerController</name>
    <message>
        <source>Enter a name for the new preset</source>
        <translation>Nom du nouveau préréglage</translation>
    </message>
    <message>
        <source>New Preset</source>
        <translation>Nouveau préréglage</translation>
    </message>
    <message>
        <source>Remove preset &apos;%1&apos;?</source>
        <translation>Supprimer le préréglage « %1 » ?</translation>
    </message>
    <message>
        <source>Add a preset</source>
        <translation>Ajouter un préréglage</translation>
    </message>
    <message>
        <source>Remove the preset</source>
        <translation>Supprimer le préréglage</translation>
    </message>
</context>
<context>
    <name>LB_FolderSourceController</name>
    <message>
        <source>No folders yet. Press + to add one, or drop a folder here.</source>
        <translation>Aucun dossier. Appuyez sur + pour en ajouter un, ou déposez un dossier ici.</translation>
    </message>
    <message>
        <source>Remove folder &apos;%1&apos;?</source>
        <translation>Retirer le dossier « %1 » ?</translation>
    </message>
</context>
<context>
    <name>LB_NavigationView</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
</context>
<context>
    <name>LB_PlaylistSourceController</name>
    <message>
        <source>No playlists. Choose a music library in the File menu, or add folders on the other tab.</source>
        <translation>Aucune liste de lecture. Choisissez une bibliothèque musicale dans le menu Fichier, ou ajoutez des dossiers dans l’autre onglet.</translation>
    </message>
</context>
<context>
    <name>LB_QueueController</name>
    <message>
        <source>Error loading &apos;%1&apos; (%2)</source>
        <translation>Erreur au chargement de « %1 » (%2)</translation>
    </message>
</context>
<context>
    <name>LB_SettingsController</name>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Source list</source>
        <translation>Liste des sources</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>Listes</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Dossiers</translation>
    </message>
    <message>
        <source>Add or remove a folder</source>
        <translation>Ajouter ou retirer un dossier</translation>
    </message>
    <message>
        <source>Number of songs</source>
        <translation>Nombre de morceaux</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Shuffle</source>
        <translation>Aléatoire</translation>
    </message>
    <message>
        <source>Play the list in random order</source>
        <translation>Lire la liste dans un ordre aléatoire</translation>
    </message>
    <message>
        <source>Search songs</source>
        <translation>Rechercher des morceaux</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>Morceaux</translation>
    </message>
    <message>
        <source>Transport</source>
        <translation>Transport</translation>
    </message>
    <message>
        <source>Artwork</source>
        <translation>Pochette</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titre</translation>
    </message>
    <message>
        <source>Artist and album</source>
        <translation>Artiste et album</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Previous song; hold to rewind</source>
        <translation>Morceau précédent ; maintenir pour reculer</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Lecture ou pause</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Next song; hold to fast-forward</source>
        <translation>Morceau suivant ; maintenir pour avancer</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Boucle</translation>
    </message>
    <message>
        <source>Mark the start of a loop, then its end</source>
        <translation>Marquer le début d’une boucle, puis sa fin</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Vitesse</translation>
    </message>
    <message>
        <source>Speed steps</source>
        <translation>Pas de vitesse</translation>
    </message>
    <message>
        <source>Speed in percent</source>
        <translation>Vitesse en pour cent</translation>
    </message>
    <message>
        <source>Pitch (cents)</source>
        <translation>Hauteur (cents)</translation>
    </message>
    <message>
        <source>Pitch steps</source>
        <translation>Pas de hauteur</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>Hauteur</translation>
    </message>
    <message>
        <source>Pitch in cents</source>
        <translation>Hauteur en cents</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Song settings</source>
        <translation>Réglages du morceau</translation>
    </message>
    <message>
        <source>Keep or forget the speed and pitch of this song</source>
        <translation>Garder ou oublier la vitesse et la hauteur de ce morceau</translation>
    </message>
</context>
<context>
    <name>MusicLibrary</name>
    <message>
        <source>Music</source>
        <translation>Musique</translation>
    </message>
</context>
<context>
    <name>OpenText</name>
    <message numerus="yes">
        <source>&apos;%1&apos; and %n more could not be opened</source>
        <translation>
            <numerusform>« %1 » et %n autre n’ont pas pu être ouverts</numerusform>
            <numerusform>« %1 » et %n autres n’ont pas pu être ouverts</numerusform>
        </translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a file on this computer</source>
        <translation>« %1 » n’est pas un fichier de cet ordinateur</translation>
    </message>
    <message>
        <source>There is no &apos;%1&apos;</source>
        <translation>« %1 » n’existe pas</translation>
    </message>
    <message>
        <source>&apos;%1&apos; may not be read</source>
        <translation>« %1 » ne peut pas être lu</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not an audio file</source>
        <translation>« %1 » n’est pas un fichier audio</translation>
    </message>
</context>
<context>
    <name>ProgressText</name>
    <message numerus="yes">
        <source>Reading songs: %1 of %Ln</source>
        <translation>
            <numerusform>Lecture des morceaux : %1 sur %Ln</numerusform>
            <numerusform>Lecture des morceaux : %1 sur %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Loading: %Ln seconds</source>
        <translation>
            <numerusform>Chargement : %Ln seconde</numerusform>
            <numerusform>Chargement : %Ln secondes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Loading: %1 of %Ln seconds</source>
        <translation>
            <numerusform>Chargement : %1 sur %Ln seconde</numerusform>
            <numerusform>Chargement : %1 sur %Ln secondes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Searching folders: %Ln files</source>
        <translation>
            <numerusform>Recherche dans les dossiers : %Ln fichier</numerusform>
            <numerusform>Recherche dans les dossiers : %Ln fichiers</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Skipping songs that cannot be loaded: %1 of %Ln</source>
        <translation>
            <numerusform>Morceaux impossibles à charger ignorés : %1 sur %Ln</numerusform>
            <numerusform>Morceaux impossibles à charger ignorés : %1 sur %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>Escape stops it</source>
        <translation>Échap arrête</translation>
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
        <translation>1 morceau</translation>
    </message>
    <message numerus="yes">
        <source>%n songs</source>
        <translation>
            <numerusform>%n morceau</numerusform>
            <numerusform>%n morceaux</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>UpdateDialog</name>
    <message>
        <source>Updates</source>
        <translation>Mises à jour</translation>
    </message>
    <message>
        <source>Lyrabox %1 is available.</source>
        <translation>Lyrabox %1 est disponible.</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>Notes de version</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Plus tard</translation>
    </message>
    <message>
        <source>Open Its Page</source>
        <translation>Ouvrir la page</translation>
    </message>
</context>
<context>
    <name>lyrabox::AssignmentRows</name>
    <message>
        <source>Unknown</source>
        <translation>Inconnu</translation>
    </message>
    <message>
        <source>Pedal or knob</source>
        <translation>Pédale ou bouton</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Commande</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Touches</translation>
    </message>
    <message>
        <source>Pedals</source>
        <translation>Pédales</translation>
    </message>
</context>
<context>
    <name>lyrabox::BarText</name>
    <message>
        <source>1 bar</source>
        <translation>1 mesure</translation>
    </message>
    <message>
        <source>%1 bars</source>
        <translation>%1 mesures</translation>
    </message>
    <message>
        <source>1 beat</source>
        <translation>1 temps</translation>
    </message>
    <message>
        <source>%1 beats</source>
        <translation>%1 temps</translation>
    </message>
</context>
<context>
    <name>lyrabox::BeatPage</name>
    <message>
        <source>Play the song, and tap along with it.</source>
        <translation>Lancez le morceau et tapez en rythme.</translation>
    </message>
    <message>
        <source>Tap along with at least four different beats.</source>
        <translation>Tapez sur au moins quatre temps différents.</translation>
    </message>
    <message>
        <source>These taps are slower than %1 BPM. Tap every beat.</source>
        <translation>C’est plus lent que %1 BPM. Tapez chaque temps.</translation>
    </message>
    <message>
        <source>These taps are faster than %1 BPM. Tap every second one.</source>
        <translation>C’est plus rapide que %1 BPM. Tapez un temps sur deux.</translation>
    </message>
    <message>
        <source>These taps are uneven. Wait a moment, and begin again at the first beat of a bar.</source>
        <translation>C’est irrégulier. Attendez un instant et recommencez au premier temps d’une mesure.</translation>
    </message>
    <message>
        <source>The song has no beats of this tempo. Tap them instead.</source>
        <translation>Le morceau n’a pas de temps à ce tempo. Tapez-les.</translation>
    </message>
    <message>
        <source>The beats of this song cannot be changed.</source>
        <translation>Les temps de ce morceau ne peuvent pas être modifiés.</translation>
    </message>
    <message>
        <source>Tap %1 of %2 …</source>
        <translation>Temps %1 sur %2…</translation>
    </message>
    <message>
        <source>Listening to the song …</source>
        <translation>Écoute du morceau…</translation>
    </message>
    <message>
        <source>The beats of the whole song are known.</source>
        <translation>Les temps de tout le morceau sont connus.</translation>
    </message>
    <message>
        <source>Where the wave is hatched, the beats are not known. Tap there, too.</source>
        <translation>Là où l’onde est hachurée, les temps sont inconnus. Tapez-y aussi.</translation>
    </message>
    <message>
        <source>About %1 BPM. Use this, or tap eight beats from a first beat on.</source>
        <translation>Environ %1 BPM. Utilisez-le, ou tapez huit temps à partir d’un premier temps.</translation>
    </message>
    <message>
        <source>Tap eight beats along with the song. Begin at the first beat of a bar.</source>
        <translation>Tapez huit temps avec le morceau, à partir du premier temps d’une mesure.</translation>
    </message>
    <message>
        <source>First beat</source>
        <translation>Premier temps</translation>
    </message>
    <message>
        <source>Tap</source>
        <translation>Taper</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Utiliser</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Effacer</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Tempo of the song in beats per minute</source>
        <translation>Tempo du morceau en temps par minute</translation>
    </message>
    <message>
        <source>Meter</source>
        <translation>Mesure</translation>
    </message>
    <message>
        <source>Change the bars only from the bar at the line on</source>
        <translation>Ne changer les mesures qu’à partir de celle à la ligne</translation>
    </message>
    <message>
        <source>One beat less per bar</source>
        <translation>Un temps de moins par mesure</translation>
    </message>
    <message>
        <source>One beat more per bar</source>
        <translation>Un temps de plus par mesure</translation>
    </message>
    <message>
        <source>Beats per bar</source>
        <translation>Temps par mesure</translation>
    </message>
    <message>
        <source>from bar %1</source>
        <translation>dès mes. %1</translation>
    </message>
    <message>
        <source>from here</source>
        <translation>dès ici</translation>
    </message>
</context>
<context>
    <name>lyrabox::CentrePanel</name>
    <message>
        <source>Centre</source>
        <translation>Centre</translation>
    </message>
    <message>
        <source>Lowest frequency of the middle</source>
        <translation>Fréquence la plus basse du centre</translation>
    </message>
    <message>
        <source>Highest frequency of the middle</source>
        <translation>Fréquence la plus haute du centre</translation>
    </message>
    <message>
        <source>What lies below or above does not count as the middle, such as bass and cymbals.</source>
        <translation>Ce qui est plus bas ou plus haut ne compte pas comme le centre : la basse et les cymbales, par exemple.</translation>
    </message>
    <message>
        <source>From</source>
        <translation>De</translation>
    </message>
    <message>
        <source>Hz</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>To</source>
        <translation>À</translation>
    </message>
</context>
<context>
    <name>lyrabox::ChoiceButton</name>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
</context>
<context>
    <name>lyrabox::ClickSettingsPanel</name>
    <message>
        <source>Click</source>
        <translation>Clic</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Son</translation>
    </message>
    <message>
        <source>Tick</source>
        <translation>Tic</translation>
    </message>
    <message>
        <source>Wood</source>
        <translation>Bois</translation>
    </message>
    <message>
        <source>Beep</source>
        <translation>Bip</translation>
    </message>
    <message>
        <source>Side</source>
        <translation>Côté</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Gauche</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>Les deux</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Droite</translation>
    </message>
    <message>
        <source>Accent</source>
        <translation>Accent</translation>
    </message>
    <message>
        <source>On 1</source>
        <translation>Sur le 1</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>Beats</source>
        <translation>Temps</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Tous</translation>
    </message>
    <message>
        <source>Only 2 and 4</source>
        <translation>Seulement 2 et 4</translation>
    </message>
    <message>
        <source>Clicks in a beat</source>
        <translation>Clics par temps</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Bars that sound</source>
        <translation>Mesures avec clic</translation>
    </message>
    <message>
        <source>Silent bars</source>
        <translation>Mesures muettes</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>Mesures</translation>
    </message>
    <message>
        <source>sound, then</source>
        <translation>sonnent, puis</translation>
    </message>
    <message>
        <source>silent</source>
        <translation>muettes</translation>
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
        <translation>Ralentir de 5 %</translation>
    </message>
    <message>
        <source>Normal speed</source>
        <translation>Vitesse normale</translation>
    </message>
    <message>
        <source>Faster by 5 percent</source>
        <translation>Accélérer de 5 %</translation>
    </message>
    <message>
        <source>A semitone down</source>
        <translation>Un demi-ton plus bas</translation>
    </message>
    <message>
        <source>Original pitch</source>
        <translation>Hauteur d’origine</translation>
    </message>
    <message>
        <source>A semitone up</source>
        <translation>Un demi-ton plus haut</translation>
    </message>
    <message>
        <source>Add a folder</source>
        <translation>Ajouter un dossier</translation>
    </message>
    <message>
        <source>Remove the folder</source>
        <translation>Retirer le dossier</translation>
    </message>
    <message>
        <source>Down 1 decibel</source>
        <translation>Baisser de 1 décibel</translation>
    </message>
    <message>
        <source>0 decibels</source>
        <translation>0 décibel</translation>
    </message>
    <message>
        <source>Up 1 decibel</source>
        <translation>Monter de 1 décibel</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>Listes</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Dossiers</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Mark the start of a loop</source>
        <translation>Marquer le début d’une boucle</translation>
    </message>
    <message>
        <source>Mark the end of the loop</source>
        <translation>Marquer la fin de la boucle</translation>
    </message>
    <message>
        <source>Clear the loop</source>
        <translation>Effacer la boucle</translation>
    </message>
    <message>
        <source>Shuffle</source>
        <translation>Aléatoire</translation>
    </message>
    <message>
        <source>Play in order</source>
        <translation>Lire dans l’ordre</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Touches</translation>
    </message>
    <message>
        <source>About Lyrabox</source>
        <translation>À propos de Lyrabox</translation>
    </message>
    <message>
        <source>Choose Music Library</source>
        <translation>Choisir la bibliothèque musicale</translation>
    </message>
    <message>
        <source>Music libraries (*.xml *.plist);;All files (*)</source>
        <translation>Bibliothèques musicales (*.xml *.plist);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Music library chosen</source>
        <translation>Bibliothèque musicale choisie</translation>
    </message>
    <message>
        <source>Its playlists are shown from the next start of Lyrabox on.</source>
        <translation>Ses listes de lecture apparaîtront au prochain démarrage de Lyrabox.</translation>
    </message>
    <message>
        <source>The music library could not be chosen</source>
        <translation>La bibliothèque musicale n’a pas pu être choisie</translation>
    </message>
    <message>
        <source>The preferences could not be written.</source>
        <translation>Les préférences n’ont pas pu être enregistrées.</translation>
    </message>
    <message>
        <source>Remove Folder…</source>
        <translation>Retirer le dossier…</translation>
    </message>
    <message>
        <source>Add Preset…</source>
        <translation>Ajouter un préréglage…</translation>
    </message>
    <message>
        <source>Remove Preset…</source>
        <translation>Supprimer le préréglage…</translation>
    </message>
    <message>
        <source>Songs cannot be opened (%1)</source>
        <translation>Impossible d’ouvrir les morceaux (%1)</translation>
    </message>
    <message>
        <source>Stopped: not all songs are in the list</source>
        <translation>Arrêté : tous les morceaux ne sont pas dans la liste</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Vitesse</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>Hauteur</translation>
    </message>
</context>
<context>
    <name>lyrabox::CountInSettingsPanel</name>
    <message>
        <source>Count-in</source>
        <translation>Décompte</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Quand</translation>
    </message>
    <message>
        <source>At Play</source>
        <translation>À la lecture</translation>
    </message>
    <message>
        <source>Before every pass</source>
        <translation>Avant chaque passage</translation>
    </message>
    <message>
        <source>1 bar</source>
        <translation>1 mesure</translation>
    </message>
    <message>
        <source>2 bars</source>
        <translation>2 mesures</translation>
    </message>
    <message>
        <source>Beats</source>
        <translation>Temps</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Longueur</translation>
    </message>
    <message>
        <source>Beats of the count-in</source>
        <translation>Temps du décompte</translation>
    </message>
    <message>
        <source>Bars of the loop</source>
        <translation>Mesures de la boucle</translation>
    </message>
    <message>
        <source>Beats of a bar</source>
        <translation>Temps par mesure</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Définir</translation>
    </message>
    <message>
        <source>bars of</source>
        <translation>mesures à</translation>
    </message>
    <message>
        <source>This loop has</source>
        <translation>Cette boucle a</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Oublier</translation>
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
        <translation>Boucle</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Morceau</translation>
    </message>
    <message>
        <source>Every Loop</source>
        <translation>Chaque boucle</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>Times</source>
        <translation>Fois</translation>
    </message>
    <message>
        <source>As the Ladder</source>
        <translation>Avec l’échelle</translation>
    </message>
    <message>
        <source>Speed and Pitch</source>
        <translation>Vitesse et hauteur</translation>
    </message>
    <message>
        <source>Equalizer</source>
        <translation>Égaliseur</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Canaux</translation>
    </message>
    <message>
        <source>Click</source>
        <translation>Clic</translation>
    </message>
    <message>
        <source>As heard</source>
        <translation>Comme entendu</translation>
    </message>
    <message>
        <source>This is as in the song.</source>
        <translation>C’est comme dans le morceau.</translation>
    </message>
    <message>
        <source>There is no loop.</source>
        <translation>Il n’y a pas de boucle.</translation>
    </message>
    <message>
        <source>As the Ladder, %1</source>
        <translation>Avec l’échelle, %1</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportRows</name>
    <message>
        <source>Waiting</source>
        <translation>En attente</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportText</name>
    <message>
        <source>This format cannot be written here.</source>
        <translation>Ce format ne peut pas être écrit ici.</translation>
    </message>
    <message>
        <source>Songs cannot be read here.</source>
        <translation>Les morceaux ne peuvent pas être lus ici.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>La mémoire ne suffit pas.</translation>
    </message>
    <message>
        <source>There is nothing to export: the loop lies beyond the end of the song.</source>
        <translation>Il n’y a rien à exporter : la boucle se trouve après la fin du morceau.</translation>
    </message>
    <message>
        <source>The disk failed while the song was read or the file was written.</source>
        <translation>Le disque a échoué pendant la lecture du morceau ou l’écriture du fichier.</translation>
    </message>
    <message>
        <source>The export failed (%1).</source>
        <translation>L’export a échoué (%1).</translation>
    </message>
    <message>
        <source>FLAC (lossless)</source>
        <translation>FLAC (sans perte)</translation>
    </message>
    <message>
        <source>WAV, 16 bits</source>
        <translation>WAV, 16 bits</translation>
    </message>
    <message>
        <source>WAV, 24 bits</source>
        <translation>WAV, 24 bits</translation>
    </message>
    <message>
        <source>WAV, 32 bits (float)</source>
        <translation>WAV, 32 bits (flottant)</translation>
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
        <translation>Le fichier du morceau n’existe plus.</translation>
    </message>
    <message>
        <source>The song&apos;s file may not be read.</source>
        <translation>La lecture du fichier du morceau n’est pas autorisée.</translation>
    </message>
    <message>
        <source>The song&apos;s file has changed. Open it again, then export it.</source>
        <translation>Le fichier du morceau a changé. Ouvrez-le à nouveau, puis exportez-le.</translation>
    </message>
    <message>
        <source>The song&apos;s file cannot be read.</source>
        <translation>Le fichier du morceau ne peut pas être lu.</translation>
    </message>
    <message>
        <source>The folder is gone.</source>
        <translation>Le dossier n’existe plus.</translation>
    </message>
    <message>
        <source>The file may not be written there.</source>
        <translation>Le fichier ne peut pas être écrit à cet endroit.</translation>
    </message>
    <message>
        <source>The name is too long for this disk.</source>
        <translation>Le nom est trop long pour ce disque.</translation>
    </message>
    <message>
        <source>The disk is full.</source>
        <translation>Le disque est plein.</translation>
    </message>
    <message>
        <source>The file is too large for this disk.</source>
        <translation>Le fichier est trop grand pour ce disque.</translation>
    </message>
    <message>
        <source>about %1 s</source>
        <translation>environ %1 s</translation>
    </message>
    <message>
        <source>about %1 min</source>
        <translation>environ %1 min</translation>
    </message>
    <message>
        <source>%1 · about %2 · ready in %3</source>
        <translation>%1 · environ %2 · prêt dans %3</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportWindow</name>
    <message>
        <source>Choose…</source>
        <translation>Choisir…</translation>
    </message>
    <message>
        <source>Cancel Export</source>
        <translation>Annuler l’export</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Exports</source>
        <translation>Exports</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Choose the folder, now %1</source>
        <translation>Choisir le dossier, actuellement %1</translation>
    </message>
    <message>
        <source>Folder for Exports</source>
        <translation>Dossier des exports</translation>
    </message>
    <message>
        <source>%1 to %2 %</source>
        <translation>%1 à %2 %</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>each its own</source>
        <translation>chacune la sienne</translation>
    </message>
    <message>
        <source>%1 - name of the loop</source>
        <translation>%1 - nom de la boucle</translation>
    </message>
    <message numerus="yes">
        <source>%n files: %1</source>
        <translation>
            <numerusform>%n fichiers : %1</numerusform>
            <numerusform>%n fichiers : %1</numerusform>
        </translation>
    </message>
    <message>
        <source>This song has no loops.</source>
        <translation>Ce morceau n’a pas de boucles.</translation>
    </message>
    <message>
        <source>Play a song, with the practice pane open, to export it.</source>
        <translation>Pour exporter un morceau, lisez-le avec le panneau de travail ouvert.</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Morceau</translation>
    </message>
    <message>
        <source>“%1” is being exported already.</source>
        <translation>« %1 » est déjà en cours d’export.</translation>
    </message>
    <message>
        <source>The disk of the folder does not answer.</source>
        <translation>Le disque du dossier ne répond pas.</translation>
    </message>
    <message>
        <source>The folder is gone. Choose another one.</source>
        <translation>Le dossier n’existe plus. Choisissez-en un autre.</translation>
    </message>
    <message>
        <source>“%1” exists already. Replace it?</source>
        <translation>« %1 » existe déjà. Le remplacer ?</translation>
    </message>
    <message numerus="yes">
        <source>%n files of these names exist already. Replace them?</source>
        <translation>
            <numerusform>%n fichiers portant ces noms existent déjà. Les remplacer ?</numerusform>
            <numerusform>%n fichiers portant ces noms existent déjà. Les remplacer ?</numerusform>
        </translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>Nothing can be exported here: the encoders are missing.</source>
        <translation>Rien ne peut être exporté ici : les encodeurs manquent.</translation>
    </message>
</context>
<context>
    <name>lyrabox::HistoryLoops</name>
    <message>
        <source>%1 to %2</source>
        <translation>%1 à %2</translation>
    </message>
    <message>
        <source>This Song</source>
        <translation>Ce morceau</translation>
    </message>
    <message>
        <source>Other Songs, Longest Not Practised First</source>
        <translation>Autres morceaux, les plus délaissés d’abord</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Aujourd’hui</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Hier</translation>
    </message>
    <message>
        <source>none</source>
        <translation>aucune</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Boucle</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Morceau</translation>
    </message>
    <message>
        <source>Best</source>
        <translation>Record</translation>
    </message>
    <message>
        <source>Practised</source>
        <translation>Travaillé</translation>
    </message>
</context>
<context>
    <name>lyrabox::HistoryWindow</name>
    <message>
        <source>Day</source>
        <translation>Jour</translation>
    </message>
    <message>
        <source>Best Speed</source>
        <translation>Meilleure vitesse</translation>
    </message>
    <message>
        <source>Week</source>
        <translation>Semaine</translation>
    </message>
    <message>
        <source>Practised</source>
        <translation>Travaillé</translation>
    </message>
    <message>
        <source>Forget History…</source>
        <translation>Oublier l’historique…</translation>
    </message>
    <message>
        <source>Practice History</source>
        <translation>Historique de travail</translation>
    </message>
    <message>
        <source>Nothing was practised yet. Keep a loop and play it: its best speed of each day, and the minutes of each week, appear here.</source>
        <translation>Rien n’a encore été travaillé. Gardez une boucle et jouez-la : sa meilleure vitesse de chaque jour et les minutes de chaque semaine apparaîtront ici.</translation>
    </message>
    <message>
        <source>Practised loops</source>
        <translation>Boucles travaillées</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Graphique</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>Tableau</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>Forme</translation>
    </message>
    <message>
        <source>Best Speed of Each Day</source>
        <translation>Meilleure vitesse de chaque jour</translation>
    </message>
    <message>
        <source>Minutes of Each Week, All Loops</source>
        <translation>Minutes de chaque semaine, toutes les boucles</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>The history is kept on this computer only.</source>
        <translation>L’historique reste sur cet ordinateur.</translation>
    </message>
    <message>
        <source>The history could not be deleted.</source>
        <translation>L’historique n’a pas pu être supprimé.</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Forget the whole history?</source>
        <translation>Oublier tout l’historique ?</translation>
    </message>
    <message>
        <source>The best speeds and the minutes of all songs are deleted from this computer. They were never anywhere else. Loops and markers stay.</source>
        <translation>Les meilleures vitesses et les minutes de tous les morceaux sont supprimées de cet ordinateur. Elles n’ont jamais été ailleurs. Les boucles et repères restent.</translation>
    </message>
    <message>
        <source>Forget History</source>
        <translation>Oublier l’historique</translation>
    </message>
</context>
<context>
    <name>lyrabox::Learner</name>
    <message>
        <source>Move the pedal or knob for “%1”. Escape cancels.</source>
        <translation>Bougez la pédale ou le bouton pour « %1 ». Échap annule.</translation>
    </message>
    <message>
        <source>Press a key or a pedal for “%1”. Escape cancels.</source>
        <translation>Appuyez sur une touche ou une pédale pour « %1 ». Échap annule.</translation>
    </message>
    <message>
        <source>%1 is needed in every window. Press another key or a pedal. Escape cancels.</source>
        <translation>%1 est nécessaire dans toutes les fenêtres. Appuyez sur une autre touche ou une pédale. Échap annule.</translation>
    </message>
    <message>
        <source>%1 is assigned to “%2”. Use it for “%3” instead?</source>
        <translation>%1 est affecté à « %2 ». L’utiliser plutôt pour « %3 » ?</translation>
    </message>
    <message>
        <source>There is no room for more.</source>
        <translation>Il n’y a plus de place.</translation>
    </message>
    <message>
        <source>%1 is now “%2”.</source>
        <translation>%1 est maintenant « %2 ».</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopColors</name>
    <message>
        <source>Violet</source>
        <translation>Violet</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rouge</translation>
    </message>
    <message>
        <source>Brown</source>
        <translation>Brun</translation>
    </message>
    <message>
        <source>Olive</source>
        <translation>Olive</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Vert</translation>
    </message>
    <message>
        <source>Teal</source>
        <translation>Bleu-vert</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Bleu</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>Gris</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopEdits</name>
    <message>
        <source>Loop %1</source>
        <translation>Boucle %1</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopEnds</name>
    <message>
        <source>Start</source>
        <translation>Début</translation>
    </message>
    <message>
        <source>Start of the loop</source>
        <translation>Début de la boucle</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>End of the loop</source>
        <translation>Fin de la boucle</translation>
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
        <translation>Boucles et repères</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Lire</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Renommer</translation>
    </message>
    <message>
        <source>&amp;Note…</source>
        <translation>&amp;Note…</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Supprimer</translation>
    </message>
    <message>
        <source>&amp;Colour</source>
        <translation>&amp;Couleur</translation>
    </message>
    <message>
        <source>&amp;Keep Speed and Pitch</source>
        <translation>&amp;Garder la vitesse et la hauteur</translation>
    </message>
    <message>
        <source>&amp;Forget Speed and Pitch</source>
        <translation>&amp;Oublier la vitesse et la hauteur</translation>
    </message>
    <message>
        <source>Note for “%1”</source>
        <translation>Note pour « %1 »</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
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
        <translation>Repère</translation>
    </message>
    <message>
        <source>Loop %1</source>
        <translation>Boucle %1</translation>
    </message>
    <message>
        <source>Beyond the end of the song</source>
        <translation>Au-delà de la fin du morceau</translation>
    </message>
    <message>
        <source>Pitch: %1 cents</source>
        <translation>Hauteur : %1 cents</translation>
    </message>
    <message>
        <source>Loop %1, called up</source>
        <translation>Boucle %1, appelée</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 à %2</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Numéro</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Emplacement</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Vitesse</translation>
    </message>
    <message>
        <source>Best speed: %1 %</source>
        <translation>Meilleure vitesse : %1 %</translation>
    </message>
    <message>
        <source>Best Speed</source>
        <translation>Meilleure vitesse</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopsPage</name>
    <message>
        <source>The loops and markers of a song are listed here.</source>
        <translation>Les boucles et repères d’un morceau s’affichent ici.</translation>
    </message>
    <message>
        <source>Press K to keep the loop that sounds, M to set a marker.</source>
        <translation>K garde la boucle qui joue, M place un repère.</translation>
    </message>
</context>
<context>
    <name>lyrabox::MainMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Add Folder…</source>
        <translation>&amp;Ajouter un dossier…</translation>
    </message>
    <message>
        <source>Choose &amp;Music Library…</source>
        <translation>Choisir la &amp;bibliothèque musicale…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Édition</translation>
    </message>
    <message>
        <source>&amp;Search Songs</source>
        <translation>&amp;Rechercher des morceaux</translation>
    </message>
    <message>
        <source>&amp;Playback</source>
        <translation>&amp;Lecture</translation>
    </message>
    <message>
        <source>&amp;Play or Pause</source>
        <translation>&amp;Lecture ou pause</translation>
    </message>
    <message>
        <source>&amp;Next Song</source>
        <translation>Morceau &amp;suivant</translation>
    </message>
    <message>
        <source>P&amp;revious Song</source>
        <translation>Morceau &amp;précédent</translation>
    </message>
    <message>
        <source>S&amp;huffle</source>
        <translation>&amp;Ordre aléatoire</translation>
    </message>
    <message>
        <source>&amp;Loop</source>
        <translation>&amp;Boucle</translation>
    </message>
    <message>
        <source>&amp;Faster</source>
        <translation>Plus &amp;vite</translation>
    </message>
    <message>
        <source>&amp;Slower</source>
        <translation>Plus l&amp;entement</translation>
    </message>
    <message>
        <source>N&amp;ormal Speed</source>
        <translation>Vitesse &amp;normale</translation>
    </message>
    <message>
        <source>Pitch &amp;Up</source>
        <translation>Plus &amp;haut</translation>
    </message>
    <message>
        <source>Pitch &amp;Down</source>
        <translation>Plus b&amp;as</translation>
    </message>
    <message>
        <source>Or&amp;iginal Pitch</source>
        <translation>Hauteur d’or&amp;igine</translation>
    </message>
    <message>
        <source>Loud&amp;er</source>
        <translation>Plus &amp;fort</translation>
    </message>
    <message>
        <source>&amp;Quieter</source>
        <translation>&amp;Moins fort</translation>
    </message>
    <message>
        <source>&amp;Song</source>
        <translation>&amp;Morceau</translation>
    </message>
    <message>
        <source>&amp;Keep Speed and Pitch</source>
        <translation>&amp;Garder la vitesse et la hauteur</translation>
    </message>
    <message>
        <source>&amp;Forget Speed and Pitch</source>
        <translation>&amp;Oublier la vitesse et la hauteur</translation>
    </message>
    <message>
        <source>&amp;Show Playing Song</source>
        <translation>&amp;Afficher le morceau en cours</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>Fe&amp;nêtre</translation>
    </message>
    <message>
        <source>&amp;Lyrabox</source>
        <translation>&amp;Lyrabox</translation>
    </message>
    <message>
        <source>&amp;Equalizer</source>
        <translation>&amp;Égaliseur</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Touches</translation>
    </message>
    <message>
        <source>&amp;Email Support…</source>
        <translation>&amp;Écrire à l’assistance…</translation>
    </message>
    <message>
        <source>&amp;Website</source>
        <translation>Site &amp;web</translation>
    </message>
    <message>
        <source>&amp;Check for Updates…</source>
        <translation>&amp;Rechercher des mises à jour…</translation>
    </message>
    <message>
        <source>&amp;About Lyrabox</source>
        <translation>À &amp;propos de Lyrabox</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Présentation</translation>
    </message>
    <message>
        <source>Song &amp;List</source>
        <translation>&amp;Liste des morceaux</translation>
    </message>
    <message>
        <source>Playlists and &amp;Folders</source>
        <translation>Listes et &amp;dossiers</translation>
    </message>
    <message>
        <source>&amp;Back 5 Seconds</source>
        <translation>&amp;Reculer de 5 secondes</translation>
    </message>
    <message>
        <source>For&amp;ward 5 Seconds</source>
        <translation>Avan&amp;cer de 5 secondes</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>&amp;Fermer la fenêtre</translation>
    </message>
    <message>
        <source>&amp;Sort By</source>
        <translation>&amp;Trier par</translation>
    </message>
    <message>
        <source>&amp;Playing</source>
        <translation>&amp;En cours</translation>
    </message>
    <message>
        <source>&amp;Title</source>
        <translation>&amp;Titre</translation>
    </message>
    <message>
        <source>&amp;Artist</source>
        <translation>&amp;Artiste</translation>
    </message>
    <message>
        <source>A&amp;lbum</source>
        <translation>A&amp;lbum</translation>
    </message>
    <message>
        <source>T&amp;ime</source>
        <translation>&amp;Durée</translation>
    </message>
    <message>
        <source>&amp;Kept Speed and Pitch</source>
        <translation>&amp;Vitesse et hauteur gardées</translation>
    </message>
    <message>
        <source>&amp;Reverse Order</source>
        <translation>&amp;Inverser l’ordre</translation>
    </message>
    <message>
        <source>&amp;Include Subfolders</source>
        <translation>&amp;Inclure les sous-dossiers</translation>
    </message>
    <message>
        <source>&amp;Own Order</source>
        <translation>&amp;Ordre propre</translation>
    </message>
    <message>
        <source>&amp;Practice Pane</source>
        <translation>&amp;Panneau de travail</translation>
    </message>
    <message>
        <source>Pract&amp;ice</source>
        <translation>&amp;Travail</translation>
    </message>
    <message>
        <source>&amp;Pedals and Keys…</source>
        <translation>&amp;Pédales et touches…</translation>
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
        <translation>Un morceau est en cours de lecture</translation>
    </message>
</context>
<context>
    <name>lyrabox::MetronomeText</name>
    <message>
        <source>Tap the beat first: T</source>
        <translation>Tapez d’abord le temps : T</translation>
    </message>
    <message>
        <source>Tap the beat first: T. Or make a loop and say how many bars it has.</source>
        <translation>Tapez d’abord le temps : T. Ou créez une boucle et indiquez combien de mesures elle compte.</translation>
    </message>
</context>
<context>
    <name>lyrabox::NoteNames</name>
    <message>
        <source>C</source>
        <translation>do</translation>
    </message>
    <message>
        <source>D♭</source>
        <translation>ré♭</translation>
    </message>
    <message>
        <source>D</source>
        <translation>ré</translation>
    </message>
    <message>
        <source>E♭</source>
        <translation>mi♭</translation>
    </message>
    <message>
        <source>E</source>
        <translation>mi</translation>
    </message>
    <message>
        <source>F</source>
        <translation>fa</translation>
    </message>
    <message>
        <source>F♯</source>
        <translation>fa♯</translation>
    </message>
    <message>
        <source>G</source>
        <translation>sol</translation>
    </message>
    <message>
        <source>A♭</source>
        <translation>la♭</translation>
    </message>
    <message>
        <source>A</source>
        <translation>la</translation>
    </message>
    <message>
        <source>B♭</source>
        <translation>si♭</translation>
    </message>
    <message>
        <source>B</source>
        <translation>si</translation>
    </message>
    <message>
        <source>C♯</source>
        <translation>do♯</translation>
    </message>
    <message>
        <source>D♯</source>
        <translation>ré♯</translation>
    </message>
    <message>
        <source>G♯</source>
        <translation>sol♯</translation>
    </message>
</context>
<context>
    <name>lyrabox::PaneDivider</name>
    <message>
        <source>Height of the practice pane</source>
        <translation>Hauteur du panneau de travail</translation>
    </message>
</context>
<context>
    <name>lyrabox::PedalAssignments</name>
    <message>
        <source>“%1”</source>
        <translation>« %1 »</translation>
    </message>
</context>
<context>
    <name>lyrabox::PedalsWindow</name>
    <message>
        <source>Controller %1</source>
        <translation>Contrôleur %1</translation>
    </message>
    <message>
        <source>Note %1</source>
        <translation>Note %1</translation>
    </message>
    <message>
        <source>Program %1</source>
        <translation>Programme %1</translation>
    </message>
    <message>
        <source>Pitch bend</source>
        <translation>Pitch bend</translation>
    </message>
    <message>
        <source>Pressure</source>
        <translation>Pression</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>%1, double tap</source>
        <translation>%1, double appui</translation>
    </message>
    <message>
        <source>%1, hold</source>
        <translation>%1, maintenu</translation>
    </message>
    <message>
        <source>Ready-Made Sets</source>
        <translation>Ensembles prêts à l’emploi</translation>
    </message>
    <message>
        <source>Use It Here</source>
        <translation>Utiliser ici</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Pedals and Keys</source>
        <translation>Pédales et touches</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Commandes</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Search commands</source>
        <translation>Rechercher des commandes</translation>
    </message>
    <message>
        <source>&amp;Two Switches (Controllers 64 and 67)</source>
        <translation>&amp;Deux interrupteurs (contrôleurs 64 et 67)</translation>
    </message>
    <message>
        <source>Two Switches and an &amp;Expression Pedal</source>
        <translation>Deux interrupteurs et une pédale d’&amp;expression</translation>
    </message>
    <message>
        <source>&amp;Page Turner: Page Up and Page Down</source>
        <translation>&amp;Tourne-page : Page préc. et Page suiv.</translation>
    </message>
    <message>
        <source>Page Turner: &amp;Arrow Keys</source>
        <translation>Tourne-page : touches &amp;fléchées</translation>
    </message>
    <message>
        <source>Tap</source>
        <translation>Appui</translation>
    </message>
    <message>
        <source>Double Tap</source>
        <translation>Double appui</translation>
    </message>
    <message>
        <source>Hold</source>
        <translation>Maintien</translation>
    </message>
    <message>
        <source>Gesture of a pedal</source>
        <translation>Geste d’une pédale</translation>
    </message>
    <message>
        <source>What the pedal or knob sends</source>
        <translation>Ce que la pédale ou le bouton envoie</translation>
    </message>
    <message>
        <source>Positions (a pedal)</source>
        <translation>Positions (une pédale)</translation>
    </message>
    <message>
        <source>Steps: 1 and 127</source>
        <translation>Pas : 1 et 127</translation>
    </message>
    <message>
        <source>Steps: 65 and 63</source>
        <translation>Pas : 65 et 63</translation>
    </message>
    <message>
        <source>Steps: 1 and 65</source>
        <translation>Pas : 1 et 65</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>%1 is no longer “%2”.</source>
        <translation>%1 n’est plus « %2 ».</translation>
    </message>
    <message>
        <source>Added: %1. Everything else stays as it was.</source>
        <translation>Ajouté : %1. Tout le reste est inchangé.</translation>
    </message>
    <message>
        <source>The assignments were made by a later version of Lyrabox. They cannot be changed here.</source>
        <translation>Les affectations ont été faites par une version ultérieure de Lyrabox. Elles ne peuvent pas être modifiées ici.</translation>
    </message>
    <message>
        <source>The assignments could not be written. They hold until Lyrabox ends.</source>
        <translation>Les affectations n’ont pas pu être enregistrées. Elles sont valables jusqu’à la fermeture de Lyrabox.</translation>
    </message>
    <message>
        <source>The file of assignments could not be read. It is kept under another name when you change something.</source>
        <translation>Le fichier des affectations n’a pas pu être lu. Il sera conservé sous un autre nom dès que vous modifierez quelque chose.</translation>
    </message>
    <message>
        <source>Some assignments in the file were not understood. The file is kept under another name when you change something.</source>
        <translation>Certaines affectations du fichier n’ont pas été comprises. Le fichier sera conservé sous un autre nom dès que vous modifierez quelque chose.</translation>
    </message>
    <message>
        <source>Learn</source>
        <translation>Apprendre</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Plugged in: %1</source>
        <translation>Branché : %1</translation>
    </message>
    <message>
        <source>No MIDI device is plugged in.</source>
        <translation>Aucun appareil MIDI n’est branché.</translation>
    </message>
    <message>
        <source>MIDI devices are looked for while you learn, and while one is assigned.</source>
        <translation>Les appareils MIDI sont recherchés pendant l’apprentissage et tant que l’un d’eux est affecté.</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeCommands</name>
    <message>
        <source>Zoom &amp;In</source>
        <translation>&amp;Agrandir</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>&amp;Réduire</translation>
    </message>
    <message>
        <source>Zoom to &amp;Loop</source>
        <translation>Zoomer sur la &amp;boucle</translation>
    </message>
    <message>
        <source>&amp;Whole Song</source>
        <translation>&amp;Morceau entier</translation>
    </message>
    <message>
        <source>&amp;Follow</source>
        <translation>&amp;Suivre</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Lire</translation>
    </message>
    <message>
        <source>&amp;Keep Loop</source>
        <translation>&amp;Garder la boucle</translation>
    </message>
    <message>
        <source>Loop %1</source>
        <translation>Boucle %1</translation>
    </message>
    <message>
        <source>Play Loop</source>
        <translation>Lire la boucle</translation>
    </message>
    <message>
        <source>&amp;Next Loop</source>
        <translation>Boucle &amp;suivante</translation>
    </message>
    <message>
        <source>&amp;Previous Loop</source>
        <translation>Boucle &amp;précédente</translation>
    </message>
    <message>
        <source>Play &amp;Selected</source>
        <translation>&amp;Lire la sélection</translation>
    </message>
    <message>
        <source>&amp;Marker</source>
        <translation>Re&amp;père</translation>
    </message>
    <message>
        <source>&amp;Add Marker</source>
        <translation>&amp;Ajouter un repère</translation>
    </message>
    <message>
        <source>Add Marker with &amp;Name…</source>
        <translation>Ajouter un repère &amp;nommé…</translation>
    </message>
    <message>
        <source>Ne&amp;xt Marker</source>
        <translation>Repère &amp;suivant</translation>
    </message>
    <message>
        <source>&amp;Previous Marker</source>
        <translation>Repère &amp;précédent</translation>
    </message>
    <message>
        <source>10 ms &amp;Earlier</source>
        <translation>10 ms plus &amp;tôt</translation>
    </message>
    <message>
        <source>10 ms &amp;Later</source>
        <translation>10 ms plus ta&amp;rd</translation>
    </message>
    <message>
        <source>1 ms E&amp;arlier</source>
        <translation>1 ms &amp;plus tôt</translation>
    </message>
    <message>
        <source>1 ms La&amp;ter</source>
        <translation>1 ms p&amp;lus tard</translation>
    </message>
    <message>
        <source>Move &amp;Start</source>
        <translation>Déplacer le &amp;début</translation>
    </message>
    <message>
        <source>Move &amp;Loop</source>
        <translation>Déplacer la &amp;boucle</translation>
    </message>
    <message>
        <source>&amp;Tidy Loop</source>
        <translation>&amp;Ajuster la boucle</translation>
    </message>
    <message>
        <source>Second &amp;Half</source>
        <translation>&amp;Seconde moitié</translation>
    </message>
    <message>
        <source>Twice as Lon&amp;g</source>
        <translation>Deux fois plus lo&amp;ngue</translation>
    </message>
    <message>
        <source>Keep Speed and P&amp;itch with Loop</source>
        <translation>Garder la &amp;vitesse et la hauteur de la boucle</translation>
    </message>
    <message>
        <source>&amp;Forget Speed and Pitch of Loop</source>
        <translation>&amp;Oublier la vitesse et la hauteur de la boucle</translation>
    </message>
    <message>
        <source>&amp;Rename…</source>
        <translation>&amp;Renommer…</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>Suppri&amp;mer</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>Ann&amp;uler</translation>
    </message>
    <message>
        <source>Red&amp;o</source>
        <translation>Ré&amp;tablir</translation>
    </message>
    <message>
        <source>&amp;Wave</source>
        <translation>Ond&amp;e</translation>
    </message>
    <message>
        <source>&amp;Beats</source>
        <translation>Temps musicau&amp;x</translation>
    </message>
    <message>
        <source>&amp;Tap Beat</source>
        <translation>&amp;Taper le temps</translation>
    </message>
    <message>
        <source>&amp;Use Suggestion</source>
        <translation>&amp;Utiliser la suggestion</translation>
    </message>
    <message>
        <source>&amp;Half the Tempo</source>
        <translation>&amp;Moitié du tempo</translation>
    </message>
    <message>
        <source>T&amp;wice the Tempo</source>
        <translation>&amp;Double du tempo</translation>
    </message>
    <message>
        <source>Three Hal&amp;ves of the Tempo</source>
        <translation>Tr&amp;ois moitiés du tempo</translation>
    </message>
    <message>
        <source>Bars One Beat &amp;Earlier</source>
        <translation>Mesures un temps plus t&amp;ôt</translation>
    </message>
    <message>
        <source>Bars One Beat &amp;Later</source>
        <translation>Mesures un temps plus ta&amp;rd</translation>
    </message>
    <message>
        <source>Beat at the Line 10 ms E&amp;arlier</source>
        <translation>Temps à la ligne 10 ms &amp;avant</translation>
    </message>
    <message>
        <source>Beat at the Line 10 ms Late&amp;r</source>
        <translation>Temps à la ligne 10 ms a&amp;près</translation>
    </message>
    <message>
        <source>&amp;Clear Beats</source>
        <translation>&amp;Effacer les temps</translation>
    </message>
    <message>
        <source>&amp;Click and Count-in</source>
        <translation>&amp;Clic et décompte</translation>
    </message>
    <message>
        <source>&amp;Click</source>
        <translation>&amp;Clic</translation>
    </message>
    <message>
        <source>Count-&amp;in</source>
        <translation>&amp;Décompte</translation>
    </message>
    <message>
        <source>Click &amp;Settings…</source>
        <translation>&amp;Réglages du clic…</translation>
    </message>
    <message>
        <source>Count-in S&amp;ettings…</source>
        <translation>Réglages du déco&amp;mpte…</translation>
    </message>
    <message>
        <source>Histor&amp;y…</source>
        <translation>&amp;Historique…</translation>
    </message>
    <message>
        <source>One Beat or 100 ms Earl&amp;ier</source>
        <translation>Un temps ou 100 ms pl&amp;us tôt</translation>
    </message>
    <message>
        <source>One Beat or 100 ms Late&amp;r</source>
        <translation>Un temps ou 100 ms plus t&amp;ard</translation>
    </message>
    <message>
        <source>%1 by 10 ms (with Alt 1 ms, with Shift a beat)</source>
        <translation>%1 de 10 ms (avec Alt 1 ms, avec Maj un temps)</translation>
    </message>
    <message>
        <source>Tr&amp;ainer</source>
        <translation>Entraîneur (&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Train Loop</source>
        <translation>&amp;Travailler la boucle</translation>
    </message>
    <message>
        <source>&amp;Rotate Loops</source>
        <translation>&amp;Alterner les boucles</translation>
    </message>
    <message>
        <source>Pass &amp;Missed</source>
        <translation>Passage &amp;manqué</translation>
    </message>
    <message>
        <source>Pass R&amp;ight</source>
        <translation>Passage &amp;réussi</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>Exporter (&amp;W)…</translation>
    </message>
    <message>
        <source>Mo&amp;ve End</source>
        <translation>Déplacer la &amp;fin</translation>
    </message>
    <message>
        <source>Sou&amp;nd</source>
        <translation>Son (&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Centre</source>
        <translation>&amp;Centre</translation>
    </message>
    <message>
        <source>Hear the &amp;Original</source>
        <translation>Écouter l’&amp;original</translation>
    </message>
    <message>
        <source>&amp;Tune to My A</source>
        <translation>Accorder sur mon &amp;la</translation>
    </message>
    <message>
        <source>&amp;Both Channels</source>
        <translation>Les &amp;deux canaux</translation>
    </message>
    <message>
        <source>&amp;Mono</source>
        <translation>&amp;Mono</translation>
    </message>
    <message>
        <source>Only the &amp;Left Channel</source>
        <translation>Canal &amp;gauche seul</translation>
    </message>
    <message>
        <source>Only the &amp;Right Channel</source>
        <translation>Canal d&amp;roit seul</translation>
    </message>
    <message>
        <source>Channels &amp;Swapped</source>
        <translation>Canaux in&amp;versés</translation>
    </message>
    <message>
        <source>&amp;Normal Sound</source>
        <translation>Son &amp;normal</translation>
    </message>
    <message>
        <source>Stand View (&amp;Q)</source>
        <translation>Vue pupitre (&amp;K)</translation>
    </message>
    <message>
        <source>E&amp;xchange</source>
        <translation>Échanger (&amp;Z)</translation>
    </message>
    <message>
        <source>&amp;Share Practice…</source>
        <translation>&amp;Partager l’exercice…</translation>
    </message>
    <message>
        <source>Share as &amp;Label Track…</source>
        <translation>Partager comme piste d’&amp;étiquettes…</translation>
    </message>
    <message>
        <source>&amp;Open Practice…</source>
        <translation>&amp;Ouvrir un exercice…</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeExport</name>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>“%1” could not be exported.</source>
        <translation>« %1 » n’a pas pu être exporté.</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeFooter</name>
    <message>
        <source>The loops of this song cannot be read. The next change keeps the old file under another name.</source>
        <translation>Les boucles de ce morceau sont illisibles. La prochaine modification gardera l’ancien fichier sous un autre nom.</translation>
    </message>
    <message>
        <source>Some loops or markers of this song cannot be read. The next change keeps the old file under another name.</source>
        <translation>Certaines boucles ou certains repères de ce morceau sont illisibles. La prochaine modification gardera l’ancien fichier sous un autre nom.</translation>
    </message>
    <message>
        <source>A later version of Lyrabox made these loops. They cannot be changed here.</source>
        <translation>Ces boucles viennent d’une version plus récente de Lyrabox. Elles ne peuvent pas être modifiées ici.</translation>
    </message>
    <message>
        <source>Loops and markers cannot be written to the disk. They are lost when Lyrabox ends.</source>
        <translation>Les boucles et repères ne peuvent pas être enregistrés. Ils seront perdus à la fermeture de Lyrabox.</translation>
    </message>
    <message>
        <source>Another program has changed the loops of this song, too. Its file was kept under another name.</source>
        <translation>Un autre programme a aussi modifié les boucles de ce morceau. Son fichier a été gardé sous un autre nom.</translation>
    </message>
    <message>
        <source>Recognising the song…</source>
        <translation>Reconnaissance du morceau…</translation>
    </message>
    <message>
        <source>The practice history cannot be written to the disk. What is added to it is lost when Lyrabox ends.</source>
        <translation>L’historique de travail ne peut pas être enregistré. Ce qui s’y ajoute sera perdu à la fermeture de Lyrabox.</translation>
    </message>
    <message>
        <source>Some lines of the practice history cannot be read and are left out.</source>
        <translation>Certaines lignes de l’historique de travail sont illisibles et sont ignorées.</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeLane</name>
    <message>
        <source>Loops and markers above the wave</source>
        <translation>Boucles et repères au-dessus de l’onde</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticePages</name>
    <message>
        <source>Page</source>
        <translation>Page</translation>
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
        <translation>Morceaux</translation>
    </message>
    <message>
        <source>Practice</source>
        <translation>Travail</translation>
    </message>
    <message>
        <source>Shown part</source>
        <translation>Partie affichée</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Boucle</translation>
    </message>
    <message>
        <source>Play a song to see its wave.</source>
        <translation>Lisez un morceau pour voir son onde.</translation>
    </message>
    <message>
        <source>Drag across the wave to make a loop.</source>
        <translation>Faites glisser sur l’onde pour créer une boucle.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Press K to keep this loop.</source>
        <translation>K garde cette boucle.</translation>
    </message>
    <message>
        <source>Loops</source>
        <translation>Boucles</translation>
    </message>
    <message>
        <source>Trainer</source>
        <translation>Entraîneur</translation>
    </message>
    <message>
        <source>Missed</source>
        <translation>Manqué</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Réussi</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Alterner</translation>
    </message>
    <message>
        <source>Beat</source>
        <translation>Temps</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Son</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeSharing</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Use Them</source>
        <translation>Les utiliser</translation>
    </message>
    <message>
        <source>Not This Song</source>
        <translation>Pas ce morceau</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
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
        <translation>1 boucle</translation>
    </message>
    <message>
        <source>%1 loops</source>
        <translation>%1 boucles</translation>
    </message>
    <message>
        <source>1 marker</source>
        <translation>1 repère</translation>
    </message>
    <message>
        <source>%1 markers</source>
        <translation>%1 repères</translation>
    </message>
    <message>
        <source>the beats</source>
        <translation>les temps</translation>
    </message>
    <message>
        <source>Nothing was added.</source>
        <translation>Rien n’a été ajouté.</translation>
    </message>
    <message>
        <source>Added: %1.</source>
        <translation>Ajouté : %1.</translation>
    </message>
    <message>
        <source>Here already: %1.</source>
        <translation>Déjà présents : %1.</translation>
    </message>
    <message>
        <source>No room for %1 more.</source>
        <translation>Pas de place pour %1 de plus.</translation>
    </message>
    <message>
        <source>These loops were made for another copy of this song.</source>
        <translation>Ces boucles ont été faites pour une autre copie de ce morceau.</translation>
    </message>
    <message>
        <source>Moved by %1.</source>
        <translation>Décalées de %1.</translation>
    </message>
    <message>
        <source>Some entries of the file were left out.</source>
        <translation>Certaines entrées du fichier ont été omises.</translation>
    </message>
    <message>
        <source>For “%1”: %2</source>
        <translation>Pour « %1 » : %2</translation>
    </message>
    <message>
        <source>Use these loops for “%1”?</source>
        <translation>Utiliser ces boucles pour « %1 » ?</translation>
    </message>
    <message>
        <source>These loops are for “%1”. Use them for “%2”?</source>
        <translation>Ces boucles sont pour « %1 ». Les utiliser pour « %2 » ?</translation>
    </message>
    <message>
        <source>“%1” cannot be read.</source>
        <translation>« %1 » ne peut pas être lu.</translation>
    </message>
    <message>
        <source>“%1” is too large for a practice file.</source>
        <translation>« %1 » est trop grand pour un fichier d’exercice.</translation>
    </message>
    <message>
        <source>“%1” was made by a later version of Lyrabox.</source>
        <translation>« %1 » a été fait par une version plus récente de Lyrabox.</translation>
    </message>
    <message>
        <source>“%1” is neither a practice file nor a label track.</source>
        <translation>« %1 » n’est ni un fichier d’exercice ni une piste d’étiquettes.</translation>
    </message>
    <message>
        <source>“%1” has no loops and no markers.</source>
        <translation>« %1 » n’a ni boucles ni repères.</translation>
    </message>
    <message>
        <source>Play the song that “%1” is for, and open the file again.</source>
        <translation>Lisez le morceau auquel « %1 » est destiné, puis rouvrez le fichier.</translation>
    </message>
    <message>
        <source>The loops of this song cannot be changed, or there is no room for so many.</source>
        <translation>Les boucles de ce morceau ne peuvent pas être modifiées, ou il n’y a pas de place pour autant.</translation>
    </message>
    <message>
        <source>“%1” cannot be written.</source>
        <translation>« %1 » ne peut pas être écrit.</translation>
    </message>
    <message>
        <source>“%1” was written.</source>
        <translation>« %1 » a été écrit.</translation>
    </message>
    <message>
        <source>Share as Label Track</source>
        <translation>Partager comme piste d’étiquettes</translation>
    </message>
    <message>
        <source>Share Practice</source>
        <translation>Partager l’exercice</translation>
    </message>
    <message>
        <source>Label tracks (*.txt)</source>
        <translation>Pistes d’étiquettes (*.txt)</translation>
    </message>
    <message>
        <source>Practice files (*.json)</source>
        <translation>Fichiers d’exercice (*.json)</translation>
    </message>
    <message>
        <source>Open Practice</source>
        <translation>Ouvrir un exercice</translation>
    </message>
    <message>
        <source>Practice files and label tracks (*.json *.txt)</source>
        <translation>Fichiers d’exercice et pistes d’étiquettes (*.json *.txt)</translation>
    </message>
</context>
<context>
    <name>lyrabox::ProgressPanel</name>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
</context>
<context>
    <name>lyrabox::RotationBox</name>
    <message>
        <source>Unit of a turn</source>
        <translation>Unité d’un tour</translation>
    </message>
    <message>
        <source>passes</source>
        <translation>passages</translation>
    </message>
    <message>
        <source>minutes</source>
        <translation>minutes</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Alternance</translation>
    </message>
    <message>
        <source>Loops take turns, in shuffled order. Without a tick, all do.</source>
        <translation>Les boucles alternent dans un ordre mélangé. Sans coche, toutes.</translation>
    </message>
    <message>
        <source>Each for</source>
        <translation>Chacune</translation>
    </message>
    <message>
        <source>Length of a turn</source>
        <translation>Longueur d’un tour</translation>
    </message>
    <message>
        <source>Loop %1</source>
        <translation>Boucle %1</translation>
    </message>
</context>
<context>
    <name>lyrabox::SUUpdater</name>
    <message>
        <source>Lyrabox is up to date.</source>
        <translation>Lyrabox est à jour.</translation>
    </message>
    <message>
        <source>Version %1 is the newest there is.</source>
        <translation>La version %1 est la plus récente.</translation>
    </message>
    <message>
        <source>This version was built without an address to ask.</source>
        <translation>Cette version a été construite sans adresse à interroger.</translation>
    </message>
    <message>
        <source>The address for updates leads to a connection that is not secure.</source>
        <translation>L’adresse des mises à jour mène à une connexion non sécurisée.</translation>
    </message>
    <message>
        <source>The answer was too large.</source>
        <translation>La réponse était trop volumineuse.</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>Le serveur n’a pas répondu à temps.</translation>
    </message>
    <message>
        <source>The answer could not be understood.</source>
        <translation>La réponse n’a pas pu être comprise.</translation>
    </message>
    <message>
        <source>Lyrabox could not check for updates.</source>
        <translation>Lyrabox n’a pas pu rechercher de mises à jour.</translation>
    </message>
</context>
<context>
    <name>lyrabox::SearchField</name>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Cancel search</source>
        <translation>Annuler la recherche</translation>
    </message>
</context>
<context>
    <name>lyrabox::SnapButton</name>
    <message>
        <source>Beat</source>
        <translation>Temps</translation>
    </message>
    <message>
        <source>Attack</source>
        <translation>Attaque</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Non</translation>
    </message>
    <message>
        <source>What the ends of loops, and markers, snap to when they are dragged. With Shift they don&apos;t.</source>
        <translation>Sur quoi s’alignent les bords des boucles et les repères que l’on déplace. Avec Maj, ils ne s’alignent pas.</translation>
    </message>
    <message>
        <source>Snap: %1</source>
        <translation>Aligner : %1</translation>
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
        <translation>Les 2</translation>
    </message>
    <message>
        <source>Mono</source>
        <translation>Mono</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Gauche</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Droite</translation>
    </message>
    <message>
        <source>Swap</source>
        <translation>Inv.</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Canaux</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>Balance</translation>
    </message>
    <message>
        <source>Balance, -100 is left, 100 is right</source>
        <translation>Balance, -100 à gauche, 100 à droite</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Centre</translation>
    </message>
    <message>
        <source>Centre, -100 is without the middle, 100 is only the middle</source>
        <translation>Centre, -100 sans le centre, 100 le centre seul</translation>
    </message>
    <message>
        <source>Limits of the middle</source>
        <translation>Limites du centre</translation>
    </message>
    <message>
        <source>The frequency of my A in Hz</source>
        <translation>Fréquence de mon la en Hz</translation>
    </message>
    <message>
        <source>My instrument</source>
        <translation>Mon instrument</translation>
    </message>
    <message>
        <source>Tune to A =</source>
        <translation>Accorder : la =</translation>
    </message>
    <message>
        <source>This song is mono: it has nothing but a middle.</source>
        <translation>Ce morceau est mono : il n’a qu’un centre.</translation>
    </message>
    <message>
        <source>Works on what was mixed into the middle.</source>
        <translation>Agit sur ce qui est mixé au centre.</translation>
    </message>
    <message>
        <source>Listening to the song …</source>
        <translation>Écoute du morceau…</translation>
    </message>
    <message>
        <source>Tuning: not clear</source>
        <translation>Accord : pas clair</translation>
    </message>
    <message>
        <source>Key: not clear</source>
        <translation>Tonalité : pas claire</translation>
    </message>
</context>
<context>
    <name>lyrabox::SoundWords</name>
    <message>
        <source>Drifts: %1 to %2 cents flat (A = %3 to %4)</source>
        <translation>Dérive : %1 à %2 cents trop bas (la = %3 à %4)</translation>
    </message>
    <message>
        <source>Drifts: %1 to %2 cents sharp (A = %3 to %4)</source>
        <translation>Dérive : %1 à %2 cents trop haut (la = %3 à %4)</translation>
    </message>
    <message>
        <source>Drifts: %1 cents flat to %2 cents sharp (A = %3 to %4)</source>
        <translation>Dérive : de %1 cents trop bas à %2 cents trop haut (la = %3 à %4)</translation>
    </message>
    <message>
        <source>In tune (A = %1)</source>
        <translation>Accordé (la = %1)</translation>
    </message>
    <message>
        <source>1 cent flat (A = %1)</source>
        <translation>1 cent trop bas (la = %1)</translation>
    </message>
    <message>
        <source>1 cent sharp (A = %1)</source>
        <translation>1 cent trop haut (la = %1)</translation>
    </message>
    <message>
        <source>%1 cents flat (A = %2)</source>
        <translation>%1 cents trop bas (la = %2)</translation>
    </message>
    <message>
        <source>%1 cents sharp (A = %2)</source>
        <translation>%1 cents trop haut (la = %2)</translation>
    </message>
    <message>
        <source>%1 minor</source>
        <translation>%1 mineur</translation>
    </message>
    <message>
        <source>%1 major</source>
        <translation>%1 majeur</translation>
    </message>
    <message>
        <source>%1 (or %2)</source>
        <translation>%1 (ou %2)</translation>
    </message>
    <message>
        <source>Capo %1</source>
        <translation>Capo %1</translation>
    </message>
    <message>
        <source>in %1</source>
        <translation>en %1</translation>
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
        <translation>De %1 le %2 à %3 le %4 ; la meilleure est %5</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
</context>
<context>
    <name>lyrabox::SplitView</name>
    <message>
        <source>Divider</source>
        <translation>Séparateur</translation>
    </message>
</context>
<context>
    <name>lyrabox::StandText</name>
    <message>
        <source>Count-in: 1 beat</source>
        <translation>Décompte : 1 temps</translation>
    </message>
    <message>
        <source>Count-in: %1 beats</source>
        <translation>Décompte : %1 temps</translation>
    </message>
    <message>
        <source>Count-in: 1 bar</source>
        <translation>Décompte : 1 mesure</translation>
    </message>
    <message>
        <source>Count-in: %1 bars</source>
        <translation>Décompte : %1 mesures</translation>
    </message>
    <message>
        <source>Bar</source>
        <translation>Mesure</translation>
    </message>
    <message>
        <source>Count-in</source>
        <translation>Décompte</translation>
    </message>
    <message>
        <source>Rest</source>
        <translation>Silence</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Vitesse</translation>
    </message>
    <message>
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Play a song.</source>
        <translation>Lancez un morceau.</translation>
    </message>
</context>
<context>
    <name>lyrabox::StandView</name>
    <message>
        <source>Stand View</source>
        <translation>Vue pupitre</translation>
    </message>
    <message>
        <source>Escape or F11: back to Lyrabox</source>
        <translation>Échap ou F11 : retour à Lyrabox</translation>
    </message>
</context>
<context>
    <name>lyrabox::TempoReadout</name>
    <message>
        <source>Type a tempo</source>
        <translation>Saisir un tempo</translation>
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
        <translation>temps %1 sur %2</translation>
    </message>
    <message>
        <source>at %1 % · song %2 · %3/4</source>
        <translation>à %1 % · morceau %2 · %3/4</translation>
    </message>
    <message>
        <source>Tempo: %1, %2</source>
        <translation>Tempo : %1, %2</translation>
    </message>
    <message>
        <source>about %1 BPM</source>
        <translation>environ %1 BPM</translation>
    </message>
    <message>
        <source>at %1 % of %2</source>
        <translation>à %1 % de %2</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrackTableModel</name>
    <message>
        <source>Title</source>
        <translation>Titre</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artiste</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>En cours</translation>
    </message>
    <message>
        <source>Has settings</source>
        <translation>A des réglages</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrainerLadder</name>
    <message>
        <source>%1, present speed</source>
        <translation>%1, vitesse actuelle</translation>
    </message>
    <message>
        <source>%1, played</source>
        <translation>%1, jouée</translation>
    </message>
    <message>
        <source>Go on at %1</source>
        <translation>Continuer à %1</translation>
    </message>
    <message>
        <source>Ladder</source>
        <translation>Échelle</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrainerPage</name>
    <message>
        <source>First speed</source>
        <translation>Première vitesse</translation>
    </message>
    <message>
        <source>to</source>
        <translation>à</translation>
    </message>
    <message>
        <source>Last speed</source>
        <translation>Dernière vitesse</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Unité</translation>
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
        <translation>Vitesses</translation>
    </message>
    <message>
        <source>Size of a step</source>
        <translation>Taille d’un palier</translation>
    </message>
    <message>
        <source>Way through the speeds</source>
        <translation>Parcours des vitesses</translation>
    </message>
    <message>
        <source>One speed</source>
        <translation>Une seule vitesse</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Montée</translation>
    </message>
    <message>
        <source>Two up, one down</source>
        <translation>Deux de plus, un de moins</translation>
    </message>
    <message>
        <source>Up and back</source>
        <translation>Montée et descente</translation>
    </message>
    <message>
        <source>Steps</source>
        <translation>Paliers</translation>
    </message>
    <message>
        <source>Passes at each speed</source>
        <translation>Passages par vitesse</translation>
    </message>
    <message>
        <source>How passes add up</source>
        <translation>Comment les passages s’ajoutent</translation>
    </message>
    <message>
        <source>in a row</source>
        <translation>de suite</translation>
    </message>
    <message>
        <source>in all</source>
        <translation>en tout</translation>
    </message>
    <message>
        <source>Passes</source>
        <translation>Passages</translation>
    </message>
    <message>
        <source>On a miss</source>
        <translation>Si manqué</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Rester</translation>
    </message>
    <message>
        <source>One step down</source>
        <translation>Un palier de moins</translation>
    </message>
    <message>
        <source>Two steps down</source>
        <translation>Deux paliers de moins</translation>
    </message>
    <message>
        <source>To the first speed</source>
        <translation>À la première vitesse</translation>
    </message>
    <message>
        <source>At the top</source>
        <translation>Au sommet</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>Continuer</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Next loop</source>
        <translation>Boucle suivante</translation>
    </message>
    <message>
        <source>From the start</source>
        <translation>Depuis le début</translation>
    </message>
    <message>
        <source>10 % more</source>
        <translation>10 % de plus</translation>
    </message>
    <message>
        <source>What counts</source>
        <translation>Ce qui compte</translation>
    </message>
    <message>
        <source>All but the missed</source>
        <translation>Tous sauf les manqués</translation>
    </message>
    <message>
        <source>Only the right ones</source>
        <translation>Seulement les réussis</translation>
    </message>
    <message>
        <source>Counts</source>
        <translation>Comptent</translation>
    </message>
    <message>
        <source>Before a pass</source>
        <translation>Avant un passage</translation>
    </message>
    <message>
        <source>Nothing</source>
        <translation>Rien</translation>
    </message>
    <message>
        <source>Count-in</source>
        <translation>Décompte</translation>
    </message>
    <message>
        <source>Run-up</source>
        <translation>Élan</translation>
    </message>
    <message>
        <source>Rest</source>
        <translation>Silence</translation>
    </message>
    <message>
        <source>Beats before a pass</source>
        <translation>Temps avant un passage</translation>
    </message>
    <message>
        <source>beats</source>
        <translation>temps</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Avant</translation>
    </message>
    <message>
        <source>When to count in</source>
        <translation>Quand décompter</translation>
    </message>
    <message>
        <source>At the start</source>
        <translation>Au début</translation>
    </message>
    <message>
        <source>At a new speed</source>
        <translation>À chaque nouvelle vitesse</translation>
    </message>
    <message>
        <source>Before every pass</source>
        <translation>Avant chaque passage</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Jamais</translation>
    </message>
    <message>
        <source>This ladder needs the song&apos;s beats.</source>
        <translation>Cette échelle demande les temps du morceau.</translation>
    </message>
    <message>
        <source>Make a loop to train it.</source>
        <translation>Créez une boucle à travailler.</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrainerWords</name>
    <message>
        <source>this pass is missed</source>
        <translation>ce passage est manqué</translation>
    </message>
    <message>
        <source>this pass is right</source>
        <translation>ce passage est réussi</translation>
    </message>
    <message>
        <source>slower</source>
        <translation>plus lent</translation>
    </message>
    <message>
        <source>missed</source>
        <translation>manqué</translation>
    </message>
    <message>
        <source>at the top</source>
        <translation>au sommet</translation>
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
        <translation>passage %1 sur %2</translation>
    </message>
    <message>
        <source>next %1</source>
        <translation>puis %1</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
</context>
<context>
    <name>lyrabox::WaveView</name>
    <message>
        <source>%1, loop from %2 to %3</source>
        <translation>%1, boucle de %2 à %3</translation>
    </message>
    <message>
        <source>Wave</source>
        <translation>Onde</translation>
    </message>
    <message>
        <source>%1, bar %2</source>
        <translation>%1, mesure %2</translation>
    </message>
    <message>
        <source>tap here, too</source>
        <translation>taper ici aussi</translation>
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
        <translation>%1 dans la semaine du %2</translation>
    </message>
    <message>
        <source>Week of %1: %2</source>
        <translation>Semaine du %1 : %2</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Lyrabox is running already but does not answer.</source>
        <translation>Lyrabox est déjà ouvert mais ne répond pas.</translation>
    </message>
</context>
</TS>
