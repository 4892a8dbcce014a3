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
</context>
<context>
    <name>lyrabox::MediaPlayerBridge</name>
    <message>
        <source>A song is playing</source>
        <translation>Un morceau est en cours de lecture</translation>
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
        <source>100 ms Earl&amp;ier</source>
        <translation>100 ms pl&amp;us tôt</translation>
    </message>
    <message>
        <source>100 ms Late&amp;r</source>
        <translation>100 ms plus t&amp;ard</translation>
    </message>
    <message>
        <source>%1 by 10 ms (with Alt 1 ms, with Shift 100 ms)</source>
        <translation>%1 de 10 ms (avec Alt 1 ms, avec Maj 100 ms)</translation>
    </message>
    <message>
        <source>Move &amp;Start</source>
        <translation>Déplacer le &amp;début</translation>
    </message>
    <message>
        <source>Move &amp;End</source>
        <translation>Déplacer la &amp;fin</translation>
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
</context>
<context>
    <name>lyrabox::ProgressPanel</name>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
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
    <name>lyrabox::SplitView</name>
    <message>
        <source>Divider</source>
        <translation>Séparateur</translation>
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
    <name>lyrabox::WaveView</name>
    <message>
        <source>%1, loop from %2 to %3</source>
        <translation>%1, boucle de %2 à %3</translation>
    </message>
    <message>
        <source>Wave</source>
        <translation>Onde</translation>
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
