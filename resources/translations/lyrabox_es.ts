<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>AddPopover</name>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>BrowserPopover</name>
    <message>
        <source>Choose a folder to add</source>
        <translation>Elija la carpeta que añadir</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Carpetas</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
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
        <translation>Uso: lyrabox [opciones] [archivos, carpetas o URL file:]

Los archivos de audio forman la lista de canciones y suena el primero. Las carpetas
se añaden a la lista de carpetas. Si el programa ya está abierto, recibe ambas cosas.

Opciones:
  -h, --help     mostrar esta ayuda
  -v, --version  mostrar la versión
  --             a continuación solo hay archivos y carpetas
</translation>
    </message>
</context>
<context>
    <name>EmptyListText</name>
    <message>
        <source>This folder cannot be read.</source>
        <translation>Esta carpeta no se puede leer.</translation>
    </message>
    <message>
        <source>No songs here.</source>
        <translation>Aquí no hay canciones.</translation>
    </message>
    <message>
        <source>No songs here. Open the folder with its arrow: 1 folder inside.</source>
        <translation>Aquí no hay canciones. Abra la carpeta con su flecha: contiene 1 carpeta.</translation>
    </message>
    <message numerus="yes">
        <source>No songs here. Open the folder with its arrow: %Ln folders inside.</source>
        <translation>
            <numerusform>Aquí no hay canciones. Abra la carpeta con su flecha: contiene %Ln carpeta.</numerusform>
            <numerusform>Aquí no hay canciones. Abra la carpeta con su flecha: contiene %Ln carpetas.</numerusform>
        </translation>
    </message>
    <message>
        <source>Nothing matches &apos;%1&apos;.</source>
        <translation>Nada coincide con «%1».</translation>
    </message>
    <message>
        <source>Stopped before a song was read.</source>
        <translation>Detenido antes de leer una canción.</translation>
    </message>
    <message>
        <source>Choose a playlist or folder</source>
        <translation>Elija una lista o una carpeta</translation>
    </message>
    <message>
        <source>This playlist has no songs.</source>
        <translation>Esta lista no tiene canciones.</translation>
    </message>
    <message>
        <source>No songs here or in the folders inside.</source>
        <translation>No hay canciones aquí ni en las subcarpetas.</translation>
    </message>
</context>
<context>
    <name>EqualizerWindow</name>
    <message>
        <source>Equalizer</source>
        <translation>Ecualizador</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Preajustes</translation>
    </message>
    <message>
        <source>Add or remove a preset</source>
        <translation>Añadir o quitar un preajuste</translation>
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
        <translation>Nivel a 31,5 hercios</translation>
    </message>
    <message>
        <source>Level at 63 hertz</source>
        <translation>Nivel a 63 hercios</translation>
    </message>
    <message>
        <source>Level at 125 hertz</source>
        <translation>Nivel a 125 hercios</translation>
    </message>
    <message>
        <source>Level at 250 hertz</source>
        <translation>Nivel a 250 hercios</translation>
    </message>
    <message>
        <source>Level at 500 hertz</source>
        <translation>Nivel a 500 hercios</translation>
    </message>
    <message>
        <source>Level at 1 kilohertz</source>
        <translation>Nivel a 1 kilohercio</translation>
    </message>
    <message>
        <source>Level at 2 kilohertz</source>
        <translation>Nivel a 2 kilohercios</translation>
    </message>
    <message>
        <source>Level at 4 kilohertz</source>
        <translation>Nivel a 4 kilohercios</translation>
    </message>
    <message>
        <source>Level at 8 kilohertz</source>
        <translation>Nivel a 8 kilohercios</translation>
    </message>
    <message>
        <source>Level at 16 kilohertz</source>
        <translation>Nivel a 16 kilohercios</translation>
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
        <translation>Nivel a 31,5 hercios en decibelios</translation>
    </message>
    <message>
        <source>Level at 63 hertz in decibels</source>
        <translation>Nivel a 63 hercios en decibelios</translation>
    </message>
    <message>
        <source>Level at 125 hertz in decibels</source>
        <translation>Nivel a 125 hercios en decibelios</translation>
    </message>
    <message>
        <source>Level at 250 hertz in decibels</source>
        <translation>Nivel a 250 hercios en decibelios</translation>
    </message>
    <message>
        <source>Level at 500 hertz in decibels</source>
        <translation>Nivel a 500 hercios en decibelios</translation>
    </message>
    <message>
        <source>Level at 1 kilohertz in decibels</source>
        <translation>Nivel a 1 kilohercio en decibelios</translation>
    </message>
    <message>
        <source>Level at 2 kilohertz in decibels</source>
        <translation>Nivel a 2 kilohercios en decibelios</translation>
    </message>
    <message>
        <source>Level at 4 kilohertz in decibels</source>
        <translation>Nivel a 4 kilohercios en decibelios</translation>
    </message>
    <message>
        <source>Level at 8 kilohertz in decibels</source>
        <translation>Nivel a 8 kilohercios en decibelios</translation>
    </message>
    <message>
        <source>Level at 16 kilohertz in decibels</source>
        <translation>Nivel a 16 kilohercios en decibelios</translation>
    </message>
    <message>
        <source>Steps at 31.5 hertz</source>
        <translation>Pasos a 31,5 hercios</translation>
    </message>
    <message>
        <source>Steps at 63 hertz</source>
        <translation>Pasos a 63 hercios</translation>
    </message>
    <message>
        <source>Steps at 125 hertz</source>
        <translation>Pasos a 125 hercios</translation>
    </message>
    <message>
        <source>Steps at 250 hertz</source>
        <translation>Pasos a 250 hercios</translation>
    </message>
    <message>
        <source>Steps at 500 hertz</source>
        <translation>Pasos a 500 hercios</translation>
    </message>
    <message>
        <source>Steps at 1 kilohertz</source>
        <translation>Pasos a 1 kilohercio</translation>
    </message>
    <message>
        <source>Steps at 2 kilohertz</source>
        <translation>Pasos a 2 kilohercios</translation>
    </message>
    <message>
        <source>Steps at 4 kilohertz</source>
        <translation>Pasos a 4 kilohercios</translation>
    </message>
    <message>
        <source>Steps at 8 kilohertz</source>
        <translation>Pasos a 8 kilohercios</translation>
    </message>
    <message>
        <source>Steps at 16 kilohertz</source>
        <translation>Pasos a 16 kilohercios</translation>
    </message>
    <message>
        <source>Levels</source>
        <translation>Niveles</translation>
    </message>
</context>
<context>
    <name>HelpText</name>
    <message>
        <source>Version %1
A music-practice player.
Free software under the GNU General Public License, version 3 or later.</source>
        <translation>Versión %1
Un reproductor para practicar música.
Software libre bajo la Licencia Pública General de GNU, versión 3 o posterior.</translation>
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
        <translation>Espacio: reproducir o pausar
Izquierda, Derecha: una pulsación va a la canción anterior o siguiente; mantener pulsado avanza por la canción
Mayús+Izquierda, Mayús+Derecha: 5 segundos atrás y adelante
L: marcar el inicio de un bucle, luego su final, luego quitarlo
- y =: más lento y más rápido; 0: velocidad normal
[ y ]: un semitono abajo y arriba; \: tono original
Ctrl+Arriba, Ctrl+Abajo: volumen
Intro: reproducir la canción seleccionada
Ctrl+S: guardar la velocidad y el tono de la canción
Ctrl+F: buscar
Ctrl+L, Ctrl+B: la lista de canciones, las listas y carpetas
Supr, Insert: quitar una carpeta o un preajuste, añadir un preajuste
Tabulador y flechas: todos los demás controles
Ctrl+1, Ctrl+2: la ventana principal, el ecualizador</translation>
    </message>
    <message>
        <source>%1: the practice pane; while it is open:</source>
        <translation>%1: el panel de práctica; mientras está abierto:</translation>
    </message>
    <message>
        <source>%1: pedals and keys</source>
        <translation>%1: pedales y teclas</translation>
    </message>
</context>
<context>
    <name>LB_AudioController</name>
    <message>
        <source>Lyrabox cannot build its audio system. (Error %1)</source>
        <translation>Lyrabox no puede crear su sistema de audio. (Error %1)</translation>
    </message>
    <message>
        <source>The program will now terminate</source>
        <translation>El programa se cerrará ahora</translation>
    </message>
    <message>
        <source>No sound: the sound server does not answer</source>
        <translation>Sin sonido: el servidor de sonido no responde</translation>
    </message>
</context>
<context>
    <name>LB_EqualizerController</name>
    <message>
        <source>Enter a name for the new preset</source>
        <translation>Nombre del nuevo preajuste</translation>
    </message>
    <message>
        <source>New Preset</source>
        <translation>Nuevo preajuste</translation>
    </message>
    <message>
        <source>Remove preset &apos;%1&apos;?</source>
        <translation>¿Quitar el preajuste «%1»?</translation>
    </message>
    <message>
        <source>Add a preset</source>
        <translation>Añadir un preajuste</translation>
    </message>
    <message>
        <source>Remove the preset</source>
        <translation>Quitar el preajuste</translation>
    </message>
</context>
<context>
    <name>LB_FolderSourceController</name>
    <message>
        <source>No folders yet. Press + to add one, or drop a folder here.</source>
        <translation>Aún no hay carpetas. Pulse + para añadir una o suelte aquí una carpeta.</translation>
    </message>
    <message>
        <source>Remove folder &apos;%1&apos;?</source>
        <translation>¿Quitar la carpeta «%1»?</translation>
    </message>
</context>
<context>
    <name>LB_NavigationView</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
</context>
<context>
    <name>LB_PlaylistSourceController</name>
    <message>
        <source>No playlists. Choose a music library in the File menu, or add folders on the other tab.</source>
        <translation>No hay listas. Elija una biblioteca de música en el menú Archivo o añada carpetas en la otra pestaña.</translation>
    </message>
</context>
<context>
    <name>LB_QueueController</name>
    <message>
        <source>Error loading &apos;%1&apos; (%2)</source>
        <translation>Error al cargar «%1» (%2)</translation>
    </message>
</context>
<context>
    <name>LB_SettingsController</name>
    <message>
        <source>Untitled</source>
        <translation>Sin título</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Source list</source>
        <translation>Lista de fuentes</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>Listas</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Carpetas</translation>
    </message>
    <message>
        <source>Add or remove a folder</source>
        <translation>Añadir o quitar una carpeta</translation>
    </message>
    <message>
        <source>Number of songs</source>
        <translation>Número de canciones</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Shuffle</source>
        <translation>Aleatorio</translation>
    </message>
    <message>
        <source>Play the list in random order</source>
        <translation>Reproducir la lista en orden aleatorio</translation>
    </message>
    <message>
        <source>Search songs</source>
        <translation>Buscar canciones</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>Canciones</translation>
    </message>
    <message>
        <source>Transport</source>
        <translation>Transporte</translation>
    </message>
    <message>
        <source>Artwork</source>
        <translation>Carátula</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Título</translation>
    </message>
    <message>
        <source>Artist and album</source>
        <translation>Artista y álbum</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Posición</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Previous song; hold to rewind</source>
        <translation>Canción anterior; mantenga pulsado para rebobinar</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Reproducir o pausar</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Adelante</translation>
    </message>
    <message>
        <source>Next song; hold to fast-forward</source>
        <translation>Canción siguiente; mantenga pulsado para avanzar</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Bucle</translation>
    </message>
    <message>
        <source>Mark the start of a loop, then its end</source>
        <translation>Marcar el inicio de un bucle y luego su final</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocidad</translation>
    </message>
    <message>
        <source>Speed steps</source>
        <translation>Pasos de velocidad</translation>
    </message>
    <message>
        <source>Speed in percent</source>
        <translation>Velocidad en porcentaje</translation>
    </message>
    <message>
        <source>Pitch (cents)</source>
        <translation>Tono (cents)</translation>
    </message>
    <message>
        <source>Pitch steps</source>
        <translation>Pasos de tono</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>Tono</translation>
    </message>
    <message>
        <source>Pitch in cents</source>
        <translation>Tono en cents</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Song settings</source>
        <translation>Ajustes de la canción</translation>
    </message>
    <message>
        <source>Keep or forget the speed and pitch of this song</source>
        <translation>Guardar u olvidar la velocidad y el tono de esta canción</translation>
    </message>
</context>
<context>
    <name>MusicLibrary</name>
    <message>
        <source>Music</source>
        <translation>Música</translation>
    </message>
</context>
<context>
    <name>OpenText</name>
    <message numerus="yes">
        <source>&apos;%1&apos; and %n more could not be opened</source>
        <translation>
            <numerusform>No se pudieron abrir «%1» y %n más</numerusform>
            <numerusform>No se pudieron abrir «%1» y %n más</numerusform>
        </translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a file on this computer</source>
        <translation>«%1» no es un archivo de este equipo</translation>
    </message>
    <message>
        <source>There is no &apos;%1&apos;</source>
        <translation>No existe «%1»</translation>
    </message>
    <message>
        <source>&apos;%1&apos; may not be read</source>
        <translation>«%1» no se puede leer</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not an audio file</source>
        <translation>«%1» no es un archivo de audio</translation>
    </message>
</context>
<context>
    <name>ProgressText</name>
    <message numerus="yes">
        <source>Reading songs: %1 of %Ln</source>
        <translation>
            <numerusform>Leyendo canciones: %1 de %Ln</numerusform>
            <numerusform>Leyendo canciones: %1 de %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Loading: %Ln seconds</source>
        <translation>
            <numerusform>Cargando: %Ln segundo</numerusform>
            <numerusform>Cargando: %Ln segundos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Loading: %1 of %Ln seconds</source>
        <translation>
            <numerusform>Cargando: %1 de %Ln segundo</numerusform>
            <numerusform>Cargando: %1 de %Ln segundos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Searching folders: %Ln files</source>
        <translation>
            <numerusform>Buscando en las carpetas: %Ln archivo</numerusform>
            <numerusform>Buscando en las carpetas: %Ln archivos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Skipping songs that cannot be loaded: %1 of %Ln</source>
        <translation>
            <numerusform>Saltando canciones que no se pueden cargar: %1 de %Ln</numerusform>
            <numerusform>Saltando canciones que no se pueden cargar: %1 de %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>Escape stops it</source>
        <translation>Escape lo detiene</translation>
    </message>
</context>
<context>
    <name>RemovePopover</name>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>TrackCountTextTransformer</name>
    <message>
        <source>1 song</source>
        <translation>1 canción</translation>
    </message>
    <message numerus="yes">
        <source>%n songs</source>
        <translation>
            <numerusform>%n canción</numerusform>
            <numerusform>%n canciones</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>UpdateDialog</name>
    <message>
        <source>Updates</source>
        <translation>Actualizaciones</translation>
    </message>
    <message>
        <source>Lyrabox %1 is available.</source>
        <translation>Lyrabox %1 está disponible.</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>Notas de la versión</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Más tarde</translation>
    </message>
    <message>
        <source>Open Its Page</source>
        <translation>Abrir su página</translation>
    </message>
</context>
<context>
    <name>lyrabox::AssignmentRows</name>
    <message>
        <source>Unknown</source>
        <translation>Desconocido</translation>
    </message>
    <message>
        <source>Pedal or knob</source>
        <translation>Pedal o perilla</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Comando</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menú</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Teclas</translation>
    </message>
    <message>
        <source>Pedals</source>
        <translation>Pedales</translation>
    </message>
</context>
<context>
    <name>lyrabox::BarText</name>
    <message>
        <source>1 bar</source>
        <translation>1 compás</translation>
    </message>
    <message>
        <source>%1 bars</source>
        <translation>%1 compases</translation>
    </message>
    <message>
        <source>1 beat</source>
        <translation>1 pulso</translation>
    </message>
    <message>
        <source>%1 beats</source>
        <translation>%1 pulsos</translation>
    </message>
</context>
<context>
    <name>lyrabox::BeatPage</name>
    <message>
        <source>Play the song, and tap along with it.</source>
        <translation>Reproduzca la canción y marque con ella.</translation>
    </message>
    <message>
        <source>Tap along with at least four different beats.</source>
        <translation>Marque al menos cuatro pulsos distintos.</translation>
    </message>
    <message>
        <source>These taps are slower than %1 BPM. Tap every beat.</source>
        <translation>Es más lento que %1 BPM. Marque cada pulso.</translation>
    </message>
    <message>
        <source>These taps are faster than %1 BPM. Tap every second one.</source>
        <translation>Es más rápido que %1 BPM. Marque uno de cada dos.</translation>
    </message>
    <message>
        <source>These taps are uneven. Wait a moment, and begin again at the first beat of a bar.</source>
        <translation>Es irregular. Espere un momento y empiece de nuevo en el primer pulso de un compás.</translation>
    </message>
    <message>
        <source>The song has no beats of this tempo. Tap them instead.</source>
        <translation>La canción no tiene pulsos de ese tempo. Márquelos.</translation>
    </message>
    <message>
        <source>The beats of this song cannot be changed.</source>
        <translation>Los pulsos de esta canción no se pueden cambiar.</translation>
    </message>
    <message>
        <source>Tap %1 of %2 …</source>
        <translation>Pulso %1 de %2…</translation>
    </message>
    <message>
        <source>Listening to the song …</source>
        <translation>Escuchando la canción…</translation>
    </message>
    <message>
        <source>The beats of the whole song are known.</source>
        <translation>Se conocen los pulsos de toda la canción.</translation>
    </message>
    <message>
        <source>Where the wave is hatched, the beats are not known. Tap there, too.</source>
        <translation>Donde la onda está rayada no se conocen los pulsos. Marque allí también.</translation>
    </message>
    <message>
        <source>About %1 BPM. Use this, or tap eight beats from a first beat on.</source>
        <translation>Unos %1 BPM. Úselo o marque ocho pulsos desde un primer pulso.</translation>
    </message>
    <message>
        <source>Tap eight beats along with the song. Begin at the first beat of a bar.</source>
        <translation>Marque ocho pulsos con la canción, desde el primer pulso de un compás.</translation>
    </message>
    <message>
        <source>First beat</source>
        <translation>Primer pulso</translation>
    </message>
    <message>
        <source>Tap</source>
        <translation>Marcar</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Usar</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Borrar</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Tempo of the song in beats per minute</source>
        <translation>Tempo de la canción en pulsos por minuto</translation>
    </message>
    <message>
        <source>Meter</source>
        <translation>Compás</translation>
    </message>
    <message>
        <source>Change the bars only from the bar at the line on</source>
        <translation>Cambiar los compases solo desde el de la línea</translation>
    </message>
    <message>
        <source>One beat less per bar</source>
        <translation>Un pulso menos por compás</translation>
    </message>
    <message>
        <source>One beat more per bar</source>
        <translation>Un pulso más por compás</translation>
    </message>
    <message>
        <source>Beats per bar</source>
        <translation>Pulsos por compás</translation>
    </message>
    <message>
        <source>from bar %1</source>
        <translation>desde %1</translation>
    </message>
    <message>
        <source>from here</source>
        <translation>desde aquí</translation>
    </message>
</context>
<context>
    <name>lyrabox::CentrePanel</name>
    <message>
        <source>Centre</source>
        <translation>Centro</translation>
    </message>
    <message>
        <source>Lowest frequency of the middle</source>
        <translation>Frecuencia más baja del centro</translation>
    </message>
    <message>
        <source>Highest frequency of the middle</source>
        <translation>Frecuencia más alta del centro</translation>
    </message>
    <message>
        <source>What lies below or above does not count as the middle, such as bass and cymbals.</source>
        <translation>Lo que queda por debajo o por encima no cuenta como centro, por ejemplo el bajo y los platillos.</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Desde</translation>
    </message>
    <message>
        <source>Hz</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Hasta</translation>
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
        <translation>Clic</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Sonido</translation>
    </message>
    <message>
        <source>Tick</source>
        <translation>Tic</translation>
    </message>
    <message>
        <source>Wood</source>
        <translation>Madera</translation>
    </message>
    <message>
        <source>Beep</source>
        <translation>Pitido</translation>
    </message>
    <message>
        <source>Side</source>
        <translation>Lado</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Izquierda</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>Ambos</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Derecha</translation>
    </message>
    <message>
        <source>Accent</source>
        <translation>Acento</translation>
    </message>
    <message>
        <source>On 1</source>
        <translation>En el 1</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ninguno</translation>
    </message>
    <message>
        <source>Beats</source>
        <translation>Pulsos</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Todos</translation>
    </message>
    <message>
        <source>Only 2 and 4</source>
        <translation>Solo 2 y 4</translation>
    </message>
    <message>
        <source>Clicks in a beat</source>
        <translation>Clics por pulso</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Bars that sound</source>
        <translation>Compases con clic</translation>
    </message>
    <message>
        <source>Silent bars</source>
        <translation>Compases mudos</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>Compases</translation>
    </message>
    <message>
        <source>sound, then</source>
        <translation>suenan, luego</translation>
    </message>
    <message>
        <source>silent</source>
        <translation>mudos</translation>
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
        <translation>5 por ciento más lento</translation>
    </message>
    <message>
        <source>Normal speed</source>
        <translation>Velocidad normal</translation>
    </message>
    <message>
        <source>Faster by 5 percent</source>
        <translation>5 por ciento más rápido</translation>
    </message>
    <message>
        <source>A semitone down</source>
        <translation>Un semitono abajo</translation>
    </message>
    <message>
        <source>Original pitch</source>
        <translation>Tono original</translation>
    </message>
    <message>
        <source>A semitone up</source>
        <translation>Un semitono arriba</translation>
    </message>
    <message>
        <source>Add a folder</source>
        <translation>Añadir una carpeta</translation>
    </message>
    <message>
        <source>Remove the folder</source>
        <translation>Quitar la carpeta</translation>
    </message>
    <message>
        <source>Down 1 decibel</source>
        <translation>Bajar 1 decibelio</translation>
    </message>
    <message>
        <source>0 decibels</source>
        <translation>0 decibelios</translation>
    </message>
    <message>
        <source>Up 1 decibel</source>
        <translation>Subir 1 decibelio</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>Listas</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Carpetas</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Mark the start of a loop</source>
        <translation>Marcar el inicio de un bucle</translation>
    </message>
    <message>
        <source>Mark the end of the loop</source>
        <translation>Marcar el final del bucle</translation>
    </message>
    <message>
        <source>Clear the loop</source>
        <translation>Quitar el bucle</translation>
    </message>
    <message>
        <source>Shuffle</source>
        <translation>Aleatorio</translation>
    </message>
    <message>
        <source>Play in order</source>
        <translation>Reproducir en orden</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Teclas</translation>
    </message>
    <message>
        <source>About Lyrabox</source>
        <translation>Acerca de Lyrabox</translation>
    </message>
    <message>
        <source>Choose Music Library</source>
        <translation>Elegir biblioteca de música</translation>
    </message>
    <message>
        <source>Music libraries (*.xml *.plist);;All files (*)</source>
        <translation>Bibliotecas de música (*.xml *.plist);;Todos los archivos (*)</translation>
    </message>
    <message>
        <source>Music library chosen</source>
        <translation>Biblioteca de música elegida</translation>
    </message>
    <message>
        <source>Its playlists are shown from the next start of Lyrabox on.</source>
        <translation>Sus listas se mostrarán la próxima vez que inicie Lyrabox.</translation>
    </message>
    <message>
        <source>The music library could not be chosen</source>
        <translation>No se pudo elegir la biblioteca de música</translation>
    </message>
    <message>
        <source>The preferences could not be written.</source>
        <translation>No se pudieron guardar las preferencias.</translation>
    </message>
    <message>
        <source>Remove Folder…</source>
        <translation>Quitar carpeta…</translation>
    </message>
    <message>
        <source>Add Preset…</source>
        <translation>Añadir preajuste…</translation>
    </message>
    <message>
        <source>Remove Preset…</source>
        <translation>Quitar preajuste…</translation>
    </message>
    <message>
        <source>Songs cannot be opened (%1)</source>
        <translation>No se pueden abrir canciones (%1)</translation>
    </message>
    <message>
        <source>Stopped: not all songs are in the list</source>
        <translation>Detenido: no todas las canciones están en la lista</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocidad</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>Tono</translation>
    </message>
</context>
<context>
    <name>lyrabox::CountInSettingsPanel</name>
    <message>
        <source>Count-in</source>
        <translation>Cuenta previa</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Cuándo</translation>
    </message>
    <message>
        <source>At Play</source>
        <translation>Al reproducir</translation>
    </message>
    <message>
        <source>Before every pass</source>
        <translation>Antes de cada pasada</translation>
    </message>
    <message>
        <source>1 bar</source>
        <translation>1 compás</translation>
    </message>
    <message>
        <source>2 bars</source>
        <translation>2 compases</translation>
    </message>
    <message>
        <source>Beats</source>
        <translation>Pulsos</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Duración</translation>
    </message>
    <message>
        <source>Beats of the count-in</source>
        <translation>Pulsos de la cuenta previa</translation>
    </message>
    <message>
        <source>Bars of the loop</source>
        <translation>Compases del bucle</translation>
    </message>
    <message>
        <source>Beats of a bar</source>
        <translation>Pulsos por compás</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Fijar</translation>
    </message>
    <message>
        <source>bars of</source>
        <translation>compases de</translation>
    </message>
    <message>
        <source>This loop has</source>
        <translation>Este bucle tiene</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Olvidar</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportForm</name>
    <message>
        <source>Format</source>
        <translation>Formato</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Bucle</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Canción</translation>
    </message>
    <message>
        <source>Every Loop</source>
        <translation>Cada bucle</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportar</translation>
    </message>
    <message>
        <source>Times</source>
        <translation>Veces</translation>
    </message>
    <message>
        <source>As the Ladder</source>
        <translation>Como la escalera</translation>
    </message>
    <message>
        <source>Speed and Pitch</source>
        <translation>Velocidad y tono</translation>
    </message>
    <message>
        <source>Equalizer</source>
        <translation>Ecualizador</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Canales</translation>
    </message>
    <message>
        <source>Click</source>
        <translation>Clic</translation>
    </message>
    <message>
        <source>As heard</source>
        <translation>Como suena</translation>
    </message>
    <message>
        <source>This is as in the song.</source>
        <translation>Es como en la canción.</translation>
    </message>
    <message>
        <source>There is no loop.</source>
        <translation>No hay ningún bucle.</translation>
    </message>
    <message>
        <source>As the Ladder, %1</source>
        <translation>Como la escalera, %1</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportRows</name>
    <message>
        <source>Waiting</source>
        <translation>En espera</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminado</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportText</name>
    <message>
        <source>This format cannot be written here.</source>
        <translation>Este formato no se puede escribir aquí.</translation>
    </message>
    <message>
        <source>Songs cannot be read here.</source>
        <translation>Aquí no se pueden leer canciones.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>No hay memoria suficiente.</translation>
    </message>
    <message>
        <source>There is nothing to export: the loop lies beyond the end of the song.</source>
        <translation>No hay nada que exportar: el bucle está más allá del final de la canción.</translation>
    </message>
    <message>
        <source>The disk failed while the song was read or the file was written.</source>
        <translation>El disco falló mientras se leía la canción o se escribía el archivo.</translation>
    </message>
    <message>
        <source>The export failed (%1).</source>
        <translation>La exportación falló (%1).</translation>
    </message>
    <message>
        <source>FLAC (lossless)</source>
        <translation>FLAC (sin pérdida)</translation>
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
        <translation>WAV, 32 bits (coma flotante)</translation>
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
        <translation>El archivo de la canción ya no existe.</translation>
    </message>
    <message>
        <source>The song&apos;s file may not be read.</source>
        <translation>No está permitido leer el archivo de la canción.</translation>
    </message>
    <message>
        <source>The song&apos;s file has changed. Open it again, then export it.</source>
        <translation>El archivo de la canción ha cambiado. Ábrala de nuevo y expórtela.</translation>
    </message>
    <message>
        <source>The song&apos;s file cannot be read.</source>
        <translation>No se puede leer el archivo de la canción.</translation>
    </message>
    <message>
        <source>The folder is gone.</source>
        <translation>La carpeta ya no existe.</translation>
    </message>
    <message>
        <source>The file may not be written there.</source>
        <translation>No está permitido escribir el archivo ahí.</translation>
    </message>
    <message>
        <source>The name is too long for this disk.</source>
        <translation>El nombre es demasiado largo para este disco.</translation>
    </message>
    <message>
        <source>The disk is full.</source>
        <translation>El disco está lleno.</translation>
    </message>
    <message>
        <source>The file is too large for this disk.</source>
        <translation>El archivo es demasiado grande para este disco.</translation>
    </message>
    <message>
        <source>about %1 s</source>
        <translation>unos %1 s</translation>
    </message>
    <message>
        <source>about %1 min</source>
        <translation>unos %1 min</translation>
    </message>
    <message>
        <source>%1 · about %2 · ready in %3</source>
        <translation>%1 · unos %2 · listo en %3</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportWindow</name>
    <message>
        <source>Choose…</source>
        <translation>Elegir…</translation>
    </message>
    <message>
        <source>Cancel Export</source>
        <translation>Cancelar la exportación</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportar</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Carpeta</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Exports</source>
        <translation>Exportaciones</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Choose the folder, now %1</source>
        <translation>Elegir la carpeta, ahora %1</translation>
    </message>
    <message>
        <source>Folder for Exports</source>
        <translation>Carpeta de las exportaciones</translation>
    </message>
    <message>
        <source>%1 to %2 %</source>
        <translation>%1 a %2 %</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>each its own</source>
        <translation>cada uno la suya</translation>
    </message>
    <message>
        <source>%1 - name of the loop</source>
        <translation>%1 - nombre del bucle</translation>
    </message>
    <message numerus="yes">
        <source>%n files: %1</source>
        <translation>
            <numerusform>%n archivos: %1</numerusform>
            <numerusform>%n archivos: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>This song has no loops.</source>
        <translation>Esta canción no tiene bucles.</translation>
    </message>
    <message>
        <source>Play a song, with the practice pane open, to export it.</source>
        <translation>Para exportar una canción, reprodúzcala con el panel de práctica abierto.</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Canción</translation>
    </message>
    <message>
        <source>“%1” is being exported already.</source>
        <translation>«%1» ya se está exportando.</translation>
    </message>
    <message>
        <source>The disk of the folder does not answer.</source>
        <translation>El disco de la carpeta no responde.</translation>
    </message>
    <message>
        <source>The folder is gone. Choose another one.</source>
        <translation>La carpeta ya no existe. Elija otra.</translation>
    </message>
    <message>
        <source>“%1” exists already. Replace it?</source>
        <translation>«%1» ya existe. ¿Reemplazarlo?</translation>
    </message>
    <message numerus="yes">
        <source>%n files of these names exist already. Replace them?</source>
        <translation>
            <numerusform>Ya existen %n archivos con estos nombres. ¿Reemplazarlos?</numerusform>
            <numerusform>Ya existen %n archivos con estos nombres. ¿Reemplazarlos?</numerusform>
        </translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Reemplazar</translation>
    </message>
    <message>
        <source>Nothing can be exported here: the encoders are missing.</source>
        <translation>Aquí no se puede exportar nada: faltan los codificadores.</translation>
    </message>
</context>
<context>
    <name>lyrabox::HistoryLoops</name>
    <message>
        <source>%1 to %2</source>
        <translation>%1 a %2</translation>
    </message>
    <message>
        <source>This Song</source>
        <translation>Esta canción</translation>
    </message>
    <message>
        <source>Other Songs, Longest Not Practised First</source>
        <translation>Otras canciones, primero las más olvidadas</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Hoy</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Ayer</translation>
    </message>
    <message>
        <source>none</source>
        <translation>ninguna</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Bucle</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Canción</translation>
    </message>
    <message>
        <source>Best</source>
        <translation>Mejor</translation>
    </message>
    <message>
        <source>Practised</source>
        <translation>Practicado</translation>
    </message>
</context>
<context>
    <name>lyrabox::HistoryWindow</name>
    <message>
        <source>Day</source>
        <translation>Día</translation>
    </message>
    <message>
        <source>Best Speed</source>
        <translation>Mejor velocidad</translation>
    </message>
    <message>
        <source>Week</source>
        <translation>Semana</translation>
    </message>
    <message>
        <source>Practised</source>
        <translation>Practicado</translation>
    </message>
    <message>
        <source>Forget History…</source>
        <translation>Olvidar el historial…</translation>
    </message>
    <message>
        <source>Practice History</source>
        <translation>Historial de práctica</translation>
    </message>
    <message>
        <source>Nothing was practised yet. Keep a loop and play it: its best speed of each day, and the minutes of each week, appear here.</source>
        <translation>Todavía no se ha practicado nada. Guarda un bucle y reprodúcelo: aquí aparecerán su mejor velocidad de cada día y los minutos de cada semana.</translation>
    </message>
    <message>
        <source>Practised loops</source>
        <translation>Bucles practicados</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Gráfico</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>Tabla</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>Forma</translation>
    </message>
    <message>
        <source>Best Speed of Each Day</source>
        <translation>Mejor velocidad de cada día</translation>
    </message>
    <message>
        <source>Minutes of Each Week, All Loops</source>
        <translation>Minutos de cada semana, todos los bucles</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>The history is kept on this computer only.</source>
        <translation>El historial se queda en este equipo.</translation>
    </message>
    <message>
        <source>The history could not be deleted.</source>
        <translation>No se pudo borrar el historial.</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Forget the whole history?</source>
        <translation>¿Olvidar todo el historial?</translation>
    </message>
    <message>
        <source>The best speeds and the minutes of all songs are deleted from this computer. They were never anywhere else. Loops and markers stay.</source>
        <translation>Las mejores velocidades y los minutos de todas las canciones se borran de este equipo. Nunca estuvieron en otro sitio. Los bucles y las marcas se quedan.</translation>
    </message>
    <message>
        <source>Forget History</source>
        <translation>Olvidar el historial</translation>
    </message>
</context>
<context>
    <name>lyrabox::Learner</name>
    <message>
        <source>Move the pedal or knob for “%1”. Escape cancels.</source>
        <translation>Mueva el pedal o la perilla para «%1». Esc cancela.</translation>
    </message>
    <message>
        <source>Press a key or a pedal for “%1”. Escape cancels.</source>
        <translation>Pulse una tecla o un pedal para «%1». Esc cancela.</translation>
    </message>
    <message>
        <source>%1 is needed in every window. Press another key or a pedal. Escape cancels.</source>
        <translation>%1 se necesita en todas las ventanas. Pulse otra tecla o un pedal. Esc cancela.</translation>
    </message>
    <message>
        <source>%1 is assigned to “%2”. Use it for “%3” instead?</source>
        <translation>%1 está asignado a «%2». ¿Usarlo para «%3» en su lugar?</translation>
    </message>
    <message>
        <source>There is no room for more.</source>
        <translation>No hay sitio para más.</translation>
    </message>
    <message>
        <source>%1 is now “%2”.</source>
        <translation>%1 ahora es «%2».</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopColors</name>
    <message>
        <source>Violet</source>
        <translation>Violeta</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rojo</translation>
    </message>
    <message>
        <source>Brown</source>
        <translation>Marrón</translation>
    </message>
    <message>
        <source>Olive</source>
        <translation>Oliva</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Verde</translation>
    </message>
    <message>
        <source>Teal</source>
        <translation>Verde azulado</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Azul</translation>
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
        <translation>Bucle %1</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopEnds</name>
    <message>
        <source>Start</source>
        <translation>Inicio</translation>
    </message>
    <message>
        <source>Start of the loop</source>
        <translation>Inicio del bucle</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Final</translation>
    </message>
    <message>
        <source>End of the loop</source>
        <translation>Final del bucle</translation>
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
        <translation>Bucles y marcas</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Reproducir</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Cambiar nombre</translation>
    </message>
    <message>
        <source>&amp;Note…</source>
        <translation>&amp;Nota…</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Eliminar</translation>
    </message>
    <message>
        <source>&amp;Colour</source>
        <translation>C&amp;olor</translation>
    </message>
    <message>
        <source>&amp;Keep Speed and Pitch</source>
        <translation>&amp;Guardar velocidad y tono</translation>
    </message>
    <message>
        <source>&amp;Forget Speed and Pitch</source>
        <translation>Ol&amp;vidar velocidad y tono</translation>
    </message>
    <message>
        <source>Note for “%1”</source>
        <translation>Nota para «%1»</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Nota</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
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
        <translation>Marca</translation>
    </message>
    <message>
        <source>Loop %1</source>
        <translation>Bucle %1</translation>
    </message>
    <message>
        <source>Beyond the end of the song</source>
        <translation>Más allá del final de la canción</translation>
    </message>
    <message>
        <source>Pitch: %1 cents</source>
        <translation>Tono: %1 cents</translation>
    </message>
    <message>
        <source>Loop %1, called up</source>
        <translation>Bucle %1, activo</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 a %2</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Número</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Posición</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocidad</translation>
    </message>
    <message>
        <source>Best speed: %1 %</source>
        <translation>Mejor velocidad: %1 %</translation>
    </message>
    <message>
        <source>Best Speed</source>
        <translation>Mejor velocidad</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopsPage</name>
    <message>
        <source>The loops and markers of a song are listed here.</source>
        <translation>Aquí aparecen los bucles y las marcas de una canción.</translation>
    </message>
    <message>
        <source>Press K to keep the loop that sounds, M to set a marker.</source>
        <translation>K guarda el bucle que suena, M pone una marca.</translation>
    </message>
</context>
<context>
    <name>lyrabox::MainMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>&amp;Add Folder…</source>
        <translation>&amp;Añadir carpeta…</translation>
    </message>
    <message>
        <source>Choose &amp;Music Library…</source>
        <translation>Elegir biblioteca de &amp;música…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Editar</translation>
    </message>
    <message>
        <source>&amp;Search Songs</source>
        <translation>&amp;Buscar canciones</translation>
    </message>
    <message>
        <source>&amp;Playback</source>
        <translation>&amp;Reproducción</translation>
    </message>
    <message>
        <source>&amp;Play or Pause</source>
        <translation>&amp;Reproducir o pausar</translation>
    </message>
    <message>
        <source>&amp;Next Song</source>
        <translation>Canción &amp;siguiente</translation>
    </message>
    <message>
        <source>P&amp;revious Song</source>
        <translation>Canción &amp;anterior</translation>
    </message>
    <message>
        <source>S&amp;huffle</source>
        <translation>Orden a&amp;leatorio</translation>
    </message>
    <message>
        <source>&amp;Loop</source>
        <translation>&amp;Bucle</translation>
    </message>
    <message>
        <source>&amp;Faster</source>
        <translation>Más rápid&amp;o</translation>
    </message>
    <message>
        <source>&amp;Slower</source>
        <translation>Más len&amp;to</translation>
    </message>
    <message>
        <source>N&amp;ormal Speed</source>
        <translation>&amp;Velocidad normal</translation>
    </message>
    <message>
        <source>Pitch &amp;Up</source>
        <translation>S&amp;ubir el tono</translation>
    </message>
    <message>
        <source>Pitch &amp;Down</source>
        <translation>Bajar &amp;el tono</translation>
    </message>
    <message>
        <source>Or&amp;iginal Pitch</source>
        <translation>Tono or&amp;iginal</translation>
    </message>
    <message>
        <source>Loud&amp;er</source>
        <translation>&amp;Más alto</translation>
    </message>
    <message>
        <source>&amp;Quieter</source>
        <translation>Más ba&amp;jo</translation>
    </message>
    <message>
        <source>&amp;Song</source>
        <translation>&amp;Canción</translation>
    </message>
    <message>
        <source>&amp;Keep Speed and Pitch</source>
        <translation>&amp;Guardar velocidad y tono</translation>
    </message>
    <message>
        <source>&amp;Forget Speed and Pitch</source>
        <translation>&amp;Olvidar velocidad y tono</translation>
    </message>
    <message>
        <source>&amp;Show Playing Song</source>
        <translation>&amp;Mostrar la canción que suena</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>Ve&amp;ntana</translation>
    </message>
    <message>
        <source>&amp;Lyrabox</source>
        <translation>&amp;Lyrabox</translation>
    </message>
    <message>
        <source>&amp;Equalizer</source>
        <translation>&amp;Ecualizador</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Ay&amp;uda</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Teclas</translation>
    </message>
    <message>
        <source>&amp;Email Support…</source>
        <translation>&amp;Escribir al soporte…</translation>
    </message>
    <message>
        <source>&amp;Website</source>
        <translation>Sitio &amp;web</translation>
    </message>
    <message>
        <source>&amp;Check for Updates…</source>
        <translation>&amp;Buscar actualizaciones…</translation>
    </message>
    <message>
        <source>&amp;About Lyrabox</source>
        <translation>&amp;Acerca de Lyrabox</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>Song &amp;List</source>
        <translation>&amp;Lista de canciones</translation>
    </message>
    <message>
        <source>Playlists and &amp;Folders</source>
        <translation>L&amp;istas y carpetas</translation>
    </message>
    <message>
        <source>&amp;Back 5 Seconds</source>
        <translation>Retro&amp;ceder 5 segundos</translation>
    </message>
    <message>
        <source>For&amp;ward 5 Seconds</source>
        <translation>Ava&amp;nzar 5 segundos</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>&amp;Cerrar la ventana</translation>
    </message>
    <message>
        <source>&amp;Sort By</source>
        <translation>&amp;Ordenar por</translation>
    </message>
    <message>
        <source>&amp;Playing</source>
        <translation>&amp;Suena</translation>
    </message>
    <message>
        <source>&amp;Title</source>
        <translation>&amp;Título</translation>
    </message>
    <message>
        <source>&amp;Artist</source>
        <translation>&amp;Artista</translation>
    </message>
    <message>
        <source>A&amp;lbum</source>
        <translation>Ál&amp;bum</translation>
    </message>
    <message>
        <source>T&amp;ime</source>
        <translation>&amp;Duración</translation>
    </message>
    <message>
        <source>&amp;Kept Speed and Pitch</source>
        <translation>Ve&amp;locidad y tono guardados</translation>
    </message>
    <message>
        <source>&amp;Reverse Order</source>
        <translation>&amp;Invertir el orden</translation>
    </message>
    <message>
        <source>&amp;Include Subfolders</source>
        <translation>I&amp;ncluir subcarpetas</translation>
    </message>
    <message>
        <source>&amp;Own Order</source>
        <translation>Orden &amp;propio</translation>
    </message>
    <message>
        <source>&amp;Practice Pane</source>
        <translation>&amp;Panel de práctica</translation>
    </message>
    <message>
        <source>Pract&amp;ice</source>
        <translation>&amp;Práctica</translation>
    </message>
    <message>
        <source>&amp;Pedals and Keys…</source>
        <translation>&amp;Pedales y teclas…</translation>
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
        <translation>Se está reproduciendo una canción</translation>
    </message>
</context>
<context>
    <name>lyrabox::MetronomeText</name>
    <message>
        <source>Tap the beat first: T</source>
        <translation>Primero marque el pulso: T</translation>
    </message>
    <message>
        <source>Tap the beat first: T. Or make a loop and say how many bars it has.</source>
        <translation>Primero marque el pulso: T. O cree un bucle e indique cuántos compases tiene.</translation>
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
        <translation>re♭</translation>
    </message>
    <message>
        <source>D</source>
        <translation>re</translation>
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
        <translation>re♯</translation>
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
        <translation>Altura del panel de práctica</translation>
    </message>
</context>
<context>
    <name>lyrabox::PedalAssignments</name>
    <message>
        <source>“%1”</source>
        <translation>«%1»</translation>
    </message>
</context>
<context>
    <name>lyrabox::PedalsWindow</name>
    <message>
        <source>Controller %1</source>
        <translation>Controlador %1</translation>
    </message>
    <message>
        <source>Note %1</source>
        <translation>Nota %1</translation>
    </message>
    <message>
        <source>Program %1</source>
        <translation>Programa %1</translation>
    </message>
    <message>
        <source>Pitch bend</source>
        <translation>Pitch bend</translation>
    </message>
    <message>
        <source>Pressure</source>
        <translation>Presión</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>%1, double tap</source>
        <translation>%1, doble toque</translation>
    </message>
    <message>
        <source>%1, hold</source>
        <translation>%1, mantenido</translation>
    </message>
    <message>
        <source>Ready-Made Sets</source>
        <translation>Conjuntos preparados</translation>
    </message>
    <message>
        <source>Use It Here</source>
        <translation>Usar aquí</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>Pedals and Keys</source>
        <translation>Pedales y teclas</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Comandos</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Search commands</source>
        <translation>Buscar comandos</translation>
    </message>
    <message>
        <source>&amp;Two Switches (Controllers 64 and 67)</source>
        <translation>&amp;Dos interruptores (controladores 64 y 67)</translation>
    </message>
    <message>
        <source>Two Switches and an &amp;Expression Pedal</source>
        <translation>Dos interruptores y un pedal de &amp;expresión</translation>
    </message>
    <message>
        <source>&amp;Page Turner: Page Up and Page Down</source>
        <translation>&amp;Pasapáginas: Re Pág y Av Pág</translation>
    </message>
    <message>
        <source>Page Turner: &amp;Arrow Keys</source>
        <translation>Pasapáginas: teclas de &amp;flecha</translation>
    </message>
    <message>
        <source>Tap</source>
        <translation>Toque</translation>
    </message>
    <message>
        <source>Double Tap</source>
        <translation>Doble toque</translation>
    </message>
    <message>
        <source>Hold</source>
        <translation>Mantener</translation>
    </message>
    <message>
        <source>Gesture of a pedal</source>
        <translation>Gesto de un pedal</translation>
    </message>
    <message>
        <source>What the pedal or knob sends</source>
        <translation>Lo que envía el pedal o la perilla</translation>
    </message>
    <message>
        <source>Positions (a pedal)</source>
        <translation>Posiciones (un pedal)</translation>
    </message>
    <message>
        <source>Steps: 1 and 127</source>
        <translation>Pasos: 1 y 127</translation>
    </message>
    <message>
        <source>Steps: 65 and 63</source>
        <translation>Pasos: 65 y 63</translation>
    </message>
    <message>
        <source>Steps: 1 and 65</source>
        <translation>Pasos: 1 y 65</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>%1 is no longer “%2”.</source>
        <translation>%1 ya no es «%2».</translation>
    </message>
    <message>
        <source>Added: %1. Everything else stays as it was.</source>
        <translation>Añadido: %1. Todo lo demás queda como estaba.</translation>
    </message>
    <message>
        <source>The assignments were made by a later version of Lyrabox. They cannot be changed here.</source>
        <translation>Las asignaciones se hicieron con una versión posterior de Lyrabox. No se pueden cambiar aquí.</translation>
    </message>
    <message>
        <source>The assignments could not be written. They hold until Lyrabox ends.</source>
        <translation>Las asignaciones no se pudieron guardar. Valen hasta que Lyrabox se cierre.</translation>
    </message>
    <message>
        <source>The file of assignments could not be read. It is kept under another name when you change something.</source>
        <translation>El archivo de asignaciones no se pudo leer. Se conserva con otro nombre cuando cambie algo.</translation>
    </message>
    <message>
        <source>Some assignments in the file were not understood. The file is kept under another name when you change something.</source>
        <translation>Algunas asignaciones del archivo no se entendieron. El archivo se conserva con otro nombre cuando cambie algo.</translation>
    </message>
    <message>
        <source>Learn</source>
        <translation>Aprender</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Plugged in: %1</source>
        <translation>Conectado: %1</translation>
    </message>
    <message>
        <source>No MIDI device is plugged in.</source>
        <translation>No hay ningún dispositivo MIDI conectado.</translation>
    </message>
    <message>
        <source>MIDI devices are looked for while you learn, and while one is assigned.</source>
        <translation>Los dispositivos MIDI se buscan mientras aprende y mientras haya alguno asignado.</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeCommands</name>
    <message>
        <source>Zoom &amp;In</source>
        <translation>&amp;Ampliar</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>&amp;Reducir</translation>
    </message>
    <message>
        <source>Zoom to &amp;Loop</source>
        <translation>Ampliar el &amp;bucle</translation>
    </message>
    <message>
        <source>&amp;Whole Song</source>
        <translation>&amp;Canción entera</translation>
    </message>
    <message>
        <source>&amp;Follow</source>
        <translation>&amp;Seguir</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Reproducir</translation>
    </message>
    <message>
        <source>&amp;Keep Loop</source>
        <translation>&amp;Guardar bucle</translation>
    </message>
    <message>
        <source>Loop %1</source>
        <translation>Bucle %1</translation>
    </message>
    <message>
        <source>Play Loop</source>
        <translation>Reproducir bucle</translation>
    </message>
    <message>
        <source>&amp;Next Loop</source>
        <translation>Bucle &amp;siguiente</translation>
    </message>
    <message>
        <source>&amp;Previous Loop</source>
        <translation>Bucle &amp;anterior</translation>
    </message>
    <message>
        <source>Play &amp;Selected</source>
        <translation>&amp;Reproducir la selección</translation>
    </message>
    <message>
        <source>&amp;Marker</source>
        <translation>&amp;Marca</translation>
    </message>
    <message>
        <source>&amp;Add Marker</source>
        <translation>&amp;Añadir marca</translation>
    </message>
    <message>
        <source>Add Marker with &amp;Name…</source>
        <translation>Añadir marca con &amp;nombre…</translation>
    </message>
    <message>
        <source>Ne&amp;xt Marker</source>
        <translation>Marca &amp;siguiente</translation>
    </message>
    <message>
        <source>&amp;Previous Marker</source>
        <translation>Marca an&amp;terior</translation>
    </message>
    <message>
        <source>10 ms &amp;Earlier</source>
        <translation>10 ms a&amp;ntes</translation>
    </message>
    <message>
        <source>10 ms &amp;Later</source>
        <translation>10 ms &amp;después</translation>
    </message>
    <message>
        <source>1 ms E&amp;arlier</source>
        <translation>1 ms &amp;antes</translation>
    </message>
    <message>
        <source>1 ms La&amp;ter</source>
        <translation>1 ms de&amp;spués</translation>
    </message>
    <message>
        <source>Move &amp;Start</source>
        <translation>Mover &amp;inicio</translation>
    </message>
    <message>
        <source>Move &amp;Loop</source>
        <translation>Mover &amp;bucle</translation>
    </message>
    <message>
        <source>&amp;Tidy Loop</source>
        <translation>&amp;Ajustar bucle</translation>
    </message>
    <message>
        <source>Second &amp;Half</source>
        <translation>Segunda mi&amp;tad</translation>
    </message>
    <message>
        <source>Twice as Lon&amp;g</source>
        <translation>El &amp;doble de largo</translation>
    </message>
    <message>
        <source>Keep Speed and P&amp;itch with Loop</source>
        <translation>Guardar &amp;velocidad y tono con el bucle</translation>
    </message>
    <message>
        <source>&amp;Forget Speed and Pitch of Loop</source>
        <translation>O&amp;lvidar velocidad y tono del bucle</translation>
    </message>
    <message>
        <source>&amp;Rename…</source>
        <translation>&amp;Cambiar nombre…</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Eliminar</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>De&amp;shacer</translation>
    </message>
    <message>
        <source>Red&amp;o</source>
        <translation>Re&amp;hacer</translation>
    </message>
    <message>
        <source>&amp;Wave</source>
        <translation>&amp;Onda</translation>
    </message>
    <message>
        <source>&amp;Beats</source>
        <translation>P&amp;ulsos</translation>
    </message>
    <message>
        <source>&amp;Tap Beat</source>
        <translation>&amp;Marcar pulso</translation>
    </message>
    <message>
        <source>&amp;Use Suggestion</source>
        <translation>&amp;Usar sugerencia</translation>
    </message>
    <message>
        <source>&amp;Half the Tempo</source>
        <translation>Mi&amp;tad del tempo</translation>
    </message>
    <message>
        <source>T&amp;wice the Tempo</source>
        <translation>&amp;Doble del tempo</translation>
    </message>
    <message>
        <source>Three Hal&amp;ves of the Tempo</source>
        <translation>Tr&amp;es medios del tempo</translation>
    </message>
    <message>
        <source>Bars One Beat &amp;Earlier</source>
        <translation>Compases un pulso a&amp;ntes</translation>
    </message>
    <message>
        <source>Bars One Beat &amp;Later</source>
        <translation>Compases un pulso de&amp;spués</translation>
    </message>
    <message>
        <source>Beat at the Line 10 ms E&amp;arlier</source>
        <translation>Pulso en la línea 10 ms &amp;antes</translation>
    </message>
    <message>
        <source>Beat at the Line 10 ms Late&amp;r</source>
        <translation>Pulso en la línea 10 ms des&amp;pués</translation>
    </message>
    <message>
        <source>&amp;Clear Beats</source>
        <translation>&amp;Borrar pulsos</translation>
    </message>
    <message>
        <source>&amp;Click and Count-in</source>
        <translation>Clic &amp;y cuenta previa</translation>
    </message>
    <message>
        <source>&amp;Click</source>
        <translation>&amp;Clic</translation>
    </message>
    <message>
        <source>Count-&amp;in</source>
        <translation>Cuenta prev&amp;ia</translation>
    </message>
    <message>
        <source>Click &amp;Settings…</source>
        <translation>&amp;Ajustes del clic…</translation>
    </message>
    <message>
        <source>Count-in S&amp;ettings…</source>
        <translation>Aj&amp;ustes de la cuenta previa…</translation>
    </message>
    <message>
        <source>Histor&amp;y…</source>
        <translation>Historial de &amp;práctica…</translation>
    </message>
    <message>
        <source>One Beat or 100 ms Earl&amp;ier</source>
        <translation>Un pulso o 100 ms an&amp;tes</translation>
    </message>
    <message>
        <source>One Beat or 100 ms Late&amp;r</source>
        <translation>Un pulso o 100 ms des&amp;pués</translation>
    </message>
    <message>
        <source>%1 by 10 ms (with Alt 1 ms, with Shift a beat)</source>
        <translation>%1 10 ms (con Alt 1 ms, con Mayús un pulso)</translation>
    </message>
    <message>
        <source>Tr&amp;ainer</source>
        <translation>E&amp;ntrenador</translation>
    </message>
    <message>
        <source>&amp;Train Loop</source>
        <translation>&amp;Entrenar el bucle</translation>
    </message>
    <message>
        <source>&amp;Rotate Loops</source>
        <translation>&amp;Alternar los bucles</translation>
    </message>
    <message>
        <source>Pass &amp;Missed</source>
        <translation>Pasada &amp;fallida</translation>
    </message>
    <message>
        <source>Pass R&amp;ight</source>
        <translation>Pasada &amp;correcta</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>Exportar (&amp;W)…</translation>
    </message>
    <message>
        <source>Mo&amp;ve End</source>
        <translation>Mover &amp;final</translation>
    </message>
    <message>
        <source>Sou&amp;nd</source>
        <translation>Sonido (&amp;J)</translation>
    </message>
    <message>
        <source>&amp;Centre</source>
        <translation>&amp;Centro</translation>
    </message>
    <message>
        <source>Hear the &amp;Original</source>
        <translation>Escuchar el &amp;original</translation>
    </message>
    <message>
        <source>&amp;Tune to My A</source>
        <translation>&amp;Afinar con mi la</translation>
    </message>
    <message>
        <source>&amp;Both Channels</source>
        <translation>Ambos ca&amp;nales</translation>
    </message>
    <message>
        <source>&amp;Mono</source>
        <translation>&amp;Mono</translation>
    </message>
    <message>
        <source>Only the &amp;Left Channel</source>
        <translation>Solo canal &amp;izquierdo</translation>
    </message>
    <message>
        <source>Only the &amp;Right Channel</source>
        <translation>Solo canal &amp;derecho</translation>
    </message>
    <message>
        <source>Channels &amp;Swapped</source>
        <translation>Canales in&amp;vertidos</translation>
    </message>
    <message>
        <source>&amp;Normal Sound</source>
        <translation>&amp;Sonido normal</translation>
    </message>
    <message>
        <source>Stand View (&amp;Q)</source>
        <translation>Vista de atril (&amp;Q)</translation>
    </message>
    <message>
        <source>E&amp;xchange</source>
        <translation>Intercambio (&amp;Z)</translation>
    </message>
    <message>
        <source>&amp;Share Practice…</source>
        <translation>&amp;Compartir práctica…</translation>
    </message>
    <message>
        <source>Share as &amp;Label Track…</source>
        <translation>Compartir como pista de &amp;etiquetas…</translation>
    </message>
    <message>
        <source>&amp;Open Practice…</source>
        <translation>&amp;Abrir práctica…</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeExport</name>
    <message>
        <source>Export</source>
        <translation>Exportar</translation>
    </message>
    <message>
        <source>“%1” could not be exported.</source>
        <translation>No se pudo exportar «%1».</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeFooter</name>
    <message>
        <source>The loops of this song cannot be read. The next change keeps the old file under another name.</source>
        <translation>Los bucles de esta canción no se pueden leer. El próximo cambio conservará el archivo antiguo con otro nombre.</translation>
    </message>
    <message>
        <source>Some loops or markers of this song cannot be read. The next change keeps the old file under another name.</source>
        <translation>Algunos bucles o marcas de esta canción no se pueden leer. El próximo cambio conservará el archivo antiguo con otro nombre.</translation>
    </message>
    <message>
        <source>A later version of Lyrabox made these loops. They cannot be changed here.</source>
        <translation>Estos bucles son de una versión posterior de Lyrabox. Aquí no se pueden cambiar.</translation>
    </message>
    <message>
        <source>Loops and markers cannot be written to the disk. They are lost when Lyrabox ends.</source>
        <translation>Los bucles y las marcas no se pueden guardar en el disco. Se perderán al cerrar Lyrabox.</translation>
    </message>
    <message>
        <source>Another program has changed the loops of this song, too. Its file was kept under another name.</source>
        <translation>Otro programa también ha cambiado los bucles de esta canción. Su archivo se conserva con otro nombre.</translation>
    </message>
    <message>
        <source>Recognising the song…</source>
        <translation>Reconociendo la canción…</translation>
    </message>
    <message>
        <source>The practice history cannot be written to the disk. What is added to it is lost when Lyrabox ends.</source>
        <translation>El historial de práctica no se puede guardar en el disco. Lo que se añada se perderá al cerrar Lyrabox.</translation>
    </message>
    <message>
        <source>Some lines of the practice history cannot be read and are left out.</source>
        <translation>Algunas líneas del historial de práctica no se pueden leer y se omiten.</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeLane</name>
    <message>
        <source>Loops and markers above the wave</source>
        <translation>Bucles y marcas sobre la onda</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticePages</name>
    <message>
        <source>Page</source>
        <translation>Página</translation>
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
        <translation>Canciones</translation>
    </message>
    <message>
        <source>Practice</source>
        <translation>Práctica</translation>
    </message>
    <message>
        <source>Shown part</source>
        <translation>Parte mostrada</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Bucle</translation>
    </message>
    <message>
        <source>Play a song to see its wave.</source>
        <translation>Reproduzca una canción para ver su onda.</translation>
    </message>
    <message>
        <source>Drag across the wave to make a loop.</source>
        <translation>Arrastre sobre la onda para crear un bucle.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Press K to keep this loop.</source>
        <translation>K guarda este bucle.</translation>
    </message>
    <message>
        <source>Loops</source>
        <translation>Bucles</translation>
    </message>
    <message>
        <source>Trainer</source>
        <translation>Entrenador</translation>
    </message>
    <message>
        <source>Missed</source>
        <translation>Fallida</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Correcta</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Alternar</translation>
    </message>
    <message>
        <source>Beat</source>
        <translation>Pulso</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Sonido</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeSharing</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Use Them</source>
        <translation>Usarlos</translation>
    </message>
    <message>
        <source>Not This Song</source>
        <translation>No es esta canción</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
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
        <translation>1 bucle</translation>
    </message>
    <message>
        <source>%1 loops</source>
        <translation>%1 bucles</translation>
    </message>
    <message>
        <source>1 marker</source>
        <translation>1 marcador</translation>
    </message>
    <message>
        <source>%1 markers</source>
        <translation>%1 marcadores</translation>
    </message>
    <message>
        <source>the beats</source>
        <translation>los pulsos</translation>
    </message>
    <message>
        <source>Nothing was added.</source>
        <translation>No se ha añadido nada.</translation>
    </message>
    <message>
        <source>Added: %1.</source>
        <translation>Añadido: %1.</translation>
    </message>
    <message>
        <source>Here already: %1.</source>
        <translation>Ya estaban: %1.</translation>
    </message>
    <message>
        <source>No room for %1 more.</source>
        <translation>No caben %1 más.</translation>
    </message>
    <message>
        <source>These loops were made for another copy of this song.</source>
        <translation>Estos bucles se hicieron para otra copia de esta canción.</translation>
    </message>
    <message>
        <source>Moved by %1.</source>
        <translation>Desplazados %1.</translation>
    </message>
    <message>
        <source>Some entries of the file were left out.</source>
        <translation>Se han omitido algunas entradas del archivo.</translation>
    </message>
    <message>
        <source>For “%1”: %2</source>
        <translation>Para «%1»: %2</translation>
    </message>
    <message>
        <source>Use these loops for “%1”?</source>
        <translation>¿Usar estos bucles para «%1»?</translation>
    </message>
    <message>
        <source>These loops are for “%1”. Use them for “%2”?</source>
        <translation>Estos bucles son para «%1». ¿Usarlos para «%2»?</translation>
    </message>
    <message>
        <source>“%1” cannot be read.</source>
        <translation>No se puede leer «%1».</translation>
    </message>
    <message>
        <source>“%1” is too large for a practice file.</source>
        <translation>«%1» es demasiado grande para un archivo de práctica.</translation>
    </message>
    <message>
        <source>“%1” was made by a later version of Lyrabox.</source>
        <translation>«%1» se hizo con una versión posterior de Lyrabox.</translation>
    </message>
    <message>
        <source>“%1” is neither a practice file nor a label track.</source>
        <translation>«%1» no es un archivo de práctica ni una pista de etiquetas.</translation>
    </message>
    <message>
        <source>“%1” has no loops and no markers.</source>
        <translation>«%1» no tiene bucles ni marcadores.</translation>
    </message>
    <message>
        <source>Play the song that “%1” is for, and open the file again.</source>
        <translation>Reproduzca la canción para la que es «%1» y vuelva a abrir el archivo.</translation>
    </message>
    <message>
        <source>The loops of this song cannot be changed, or there is no room for so many.</source>
        <translation>Los bucles de esta canción no se pueden cambiar, o no caben tantos.</translation>
    </message>
    <message>
        <source>“%1” cannot be written.</source>
        <translation>No se puede escribir «%1».</translation>
    </message>
    <message>
        <source>“%1” was written.</source>
        <translation>«%1» se ha escrito.</translation>
    </message>
    <message>
        <source>Share as Label Track</source>
        <translation>Compartir como pista de etiquetas</translation>
    </message>
    <message>
        <source>Share Practice</source>
        <translation>Compartir práctica</translation>
    </message>
    <message>
        <source>Label tracks (*.txt)</source>
        <translation>Pistas de etiquetas (*.txt)</translation>
    </message>
    <message>
        <source>Practice files (*.json)</source>
        <translation>Archivos de práctica (*.json)</translation>
    </message>
    <message>
        <source>Open Practice</source>
        <translation>Abrir práctica</translation>
    </message>
    <message>
        <source>Practice files and label tracks (*.json *.txt)</source>
        <translation>Archivos de práctica y pistas de etiquetas (*.json *.txt)</translation>
    </message>
</context>
<context>
    <name>lyrabox::ProgressPanel</name>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
</context>
<context>
    <name>lyrabox::RotationBox</name>
    <message>
        <source>Unit of a turn</source>
        <translation>Unidad de un turno</translation>
    </message>
    <message>
        <source>passes</source>
        <translation>pasadas</translation>
    </message>
    <message>
        <source>minutes</source>
        <translation>minutos</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Alternancia</translation>
    </message>
    <message>
        <source>Loops take turns, in shuffled order. Without a tick, all do.</source>
        <translation>Los bucles se turnan en orden aleatorio. Sin marcas, todos.</translation>
    </message>
    <message>
        <source>Each for</source>
        <translation>Cada uno</translation>
    </message>
    <message>
        <source>Length of a turn</source>
        <translation>Duración de un turno</translation>
    </message>
    <message>
        <source>Loop %1</source>
        <translation>Bucle %1</translation>
    </message>
</context>
<context>
    <name>lyrabox::SUUpdater</name>
    <message>
        <source>Lyrabox is up to date.</source>
        <translation>Lyrabox está actualizado.</translation>
    </message>
    <message>
        <source>Version %1 is the newest there is.</source>
        <translation>La versión %1 es la más reciente.</translation>
    </message>
    <message>
        <source>This version was built without an address to ask.</source>
        <translation>Esta versión se compiló sin una dirección a la que preguntar.</translation>
    </message>
    <message>
        <source>The address for updates leads to a connection that is not secure.</source>
        <translation>La dirección de actualizaciones lleva a una conexión no segura.</translation>
    </message>
    <message>
        <source>The answer was too large.</source>
        <translation>La respuesta era demasiado grande.</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>El servidor no respondió a tiempo.</translation>
    </message>
    <message>
        <source>The answer could not be understood.</source>
        <translation>No se pudo entender la respuesta.</translation>
    </message>
    <message>
        <source>Lyrabox could not check for updates.</source>
        <translation>Lyrabox no pudo buscar actualizaciones.</translation>
    </message>
</context>
<context>
    <name>lyrabox::SearchField</name>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Cancel search</source>
        <translation>Cancelar la búsqueda</translation>
    </message>
</context>
<context>
    <name>lyrabox::SnapButton</name>
    <message>
        <source>Beat</source>
        <translation>Pulso</translation>
    </message>
    <message>
        <source>Attack</source>
        <translation>Ataque</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>No</translation>
    </message>
    <message>
        <source>What the ends of loops, and markers, snap to when they are dragged. With Shift they don&apos;t.</source>
        <translation>A qué se ajustan los extremos de los bucles y los marcadores al arrastrarlos. Con Mayús no se ajustan.</translation>
    </message>
    <message>
        <source>Snap: %1</source>
        <translation>Ajustar: %1</translation>
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
        <translation>Ambos</translation>
    </message>
    <message>
        <source>Mono</source>
        <translation>Mono</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Izq.</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Der.</translation>
    </message>
    <message>
        <source>Swap</source>
        <translation>Inv.</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Canales</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>Balance</translation>
    </message>
    <message>
        <source>Balance, -100 is left, 100 is right</source>
        <translation>Balance, -100 es izquierda, 100 es derecha</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Centro</translation>
    </message>
    <message>
        <source>Centre, -100 is without the middle, 100 is only the middle</source>
        <translation>Centro, -100 sin el centro, 100 solo el centro</translation>
    </message>
    <message>
        <source>Limits of the middle</source>
        <translation>Límites del centro</translation>
    </message>
    <message>
        <source>The frequency of my A in Hz</source>
        <translation>Frecuencia de mi la en Hz</translation>
    </message>
    <message>
        <source>My instrument</source>
        <translation>Mi instrumento</translation>
    </message>
    <message>
        <source>Tune to A =</source>
        <translation>Afinar: la =</translation>
    </message>
    <message>
        <source>This song is mono: it has nothing but a middle.</source>
        <translation>Esta canción es mono: solo tiene centro.</translation>
    </message>
    <message>
        <source>Works on what was mixed into the middle.</source>
        <translation>Actúa sobre lo mezclado en el centro.</translation>
    </message>
    <message>
        <source>Listening to the song …</source>
        <translation>Escuchando la canción…</translation>
    </message>
    <message>
        <source>Tuning: not clear</source>
        <translation>Afinación: no está clara</translation>
    </message>
    <message>
        <source>Key: not clear</source>
        <translation>Tonalidad: no está clara</translation>
    </message>
</context>
<context>
    <name>lyrabox::SoundWords</name>
    <message>
        <source>Drifts: %1 to %2 cents flat (A = %3 to %4)</source>
        <translation>Varía: de %1 a %2 cents bajo (la = %3 a %4)</translation>
    </message>
    <message>
        <source>Drifts: %1 to %2 cents sharp (A = %3 to %4)</source>
        <translation>Varía: de %1 a %2 cents alto (la = %3 a %4)</translation>
    </message>
    <message>
        <source>Drifts: %1 cents flat to %2 cents sharp (A = %3 to %4)</source>
        <translation>Varía: de %1 cents bajo a %2 cents alto (la = %3 a %4)</translation>
    </message>
    <message>
        <source>In tune (A = %1)</source>
        <translation>Afinada (la = %1)</translation>
    </message>
    <message>
        <source>1 cent flat (A = %1)</source>
        <translation>1 cent bajo (la = %1)</translation>
    </message>
    <message>
        <source>1 cent sharp (A = %1)</source>
        <translation>1 cent alto (la = %1)</translation>
    </message>
    <message>
        <source>%1 cents flat (A = %2)</source>
        <translation>%1 cents bajo (la = %2)</translation>
    </message>
    <message>
        <source>%1 cents sharp (A = %2)</source>
        <translation>%1 cents alto (la = %2)</translation>
    </message>
    <message>
        <source>%1 minor</source>
        <translation>%1 menor</translation>
    </message>
    <message>
        <source>%1 major</source>
        <translation>%1 mayor</translation>
    </message>
    <message>
        <source>%1 (or %2)</source>
        <translation>%1 (o %2)</translation>
    </message>
    <message>
        <source>Capo %1</source>
        <translation>Cejilla %1</translation>
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
        <translation>De %1 el %2 a %3 el %4; la mejor es %5</translation>
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
        <translation>Divisor</translation>
    </message>
</context>
<context>
    <name>lyrabox::StandText</name>
    <message>
        <source>Count-in: 1 beat</source>
        <translation>Cuenta previa: 1 pulso</translation>
    </message>
    <message>
        <source>Count-in: %1 beats</source>
        <translation>Cuenta previa: %1 pulsos</translation>
    </message>
    <message>
        <source>Count-in: 1 bar</source>
        <translation>Cuenta previa: 1 compás</translation>
    </message>
    <message>
        <source>Count-in: %1 bars</source>
        <translation>Cuenta previa: %1 compases</translation>
    </message>
    <message>
        <source>Bar</source>
        <translation>Compás</translation>
    </message>
    <message>
        <source>Count-in</source>
        <translation>Cuenta previa</translation>
    </message>
    <message>
        <source>Rest</source>
        <translation>Silencio</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocidad</translation>
    </message>
    <message>
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Play a song.</source>
        <translation>Reproduzca una canción.</translation>
    </message>
</context>
<context>
    <name>lyrabox::StandView</name>
    <message>
        <source>Stand View</source>
        <translation>Vista de atril</translation>
    </message>
    <message>
        <source>Escape or F11: back to Lyrabox</source>
        <translation>Esc o F11: volver a Lyrabox</translation>
    </message>
</context>
<context>
    <name>lyrabox::TempoReadout</name>
    <message>
        <source>Type a tempo</source>
        <translation>Escriba un tempo</translation>
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
        <translation>pulso %1 de %2</translation>
    </message>
    <message>
        <source>at %1 % · song %2 · %3/4</source>
        <translation>al %1 % · canción %2 · %3/4</translation>
    </message>
    <message>
        <source>Tempo: %1, %2</source>
        <translation>Tempo: %1, %2</translation>
    </message>
    <message>
        <source>about %1 BPM</source>
        <translation>unos %1 BPM</translation>
    </message>
    <message>
        <source>at %1 % of %2</source>
        <translation>al %1 % de %2</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrackTableModel</name>
    <message>
        <source>Title</source>
        <translation>Título</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Álbum</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Duración</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Suena</translation>
    </message>
    <message>
        <source>Has settings</source>
        <translation>Tiene ajustes</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrainerLadder</name>
    <message>
        <source>%1, present speed</source>
        <translation>%1, velocidad actual</translation>
    </message>
    <message>
        <source>%1, played</source>
        <translation>%1, ya tocada</translation>
    </message>
    <message>
        <source>Go on at %1</source>
        <translation>Seguir a %1</translation>
    </message>
    <message>
        <source>Ladder</source>
        <translation>Escalera</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrainerPage</name>
    <message>
        <source>First speed</source>
        <translation>Primera velocidad</translation>
    </message>
    <message>
        <source>to</source>
        <translation>a</translation>
    </message>
    <message>
        <source>Last speed</source>
        <translation>Última velocidad</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Unidad</translation>
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
        <translation>Velocidad</translation>
    </message>
    <message>
        <source>Size of a step</source>
        <translation>Tamaño de un paso</translation>
    </message>
    <message>
        <source>Way through the speeds</source>
        <translation>Recorrido por las velocidades</translation>
    </message>
    <message>
        <source>One speed</source>
        <translation>Una velocidad</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Subida</translation>
    </message>
    <message>
        <source>Two up, one down</source>
        <translation>Dos arriba, uno abajo</translation>
    </message>
    <message>
        <source>Up and back</source>
        <translation>Subida y bajada</translation>
    </message>
    <message>
        <source>Steps</source>
        <translation>Pasos</translation>
    </message>
    <message>
        <source>Passes at each speed</source>
        <translation>Pasadas por velocidad</translation>
    </message>
    <message>
        <source>How passes add up</source>
        <translation>Cómo se suman las pasadas</translation>
    </message>
    <message>
        <source>in a row</source>
        <translation>seguidas</translation>
    </message>
    <message>
        <source>in all</source>
        <translation>en total</translation>
    </message>
    <message>
        <source>Passes</source>
        <translation>Pasadas</translation>
    </message>
    <message>
        <source>On a miss</source>
        <translation>Si falla</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Quedarse</translation>
    </message>
    <message>
        <source>One step down</source>
        <translation>Un paso abajo</translation>
    </message>
    <message>
        <source>Two steps down</source>
        <translation>Dos pasos abajo</translation>
    </message>
    <message>
        <source>To the first speed</source>
        <translation>A la primera velocidad</translation>
    </message>
    <message>
        <source>At the top</source>
        <translation>Al final</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>Seguir</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Parar</translation>
    </message>
    <message>
        <source>Next loop</source>
        <translation>Bucle siguiente</translation>
    </message>
    <message>
        <source>From the start</source>
        <translation>Desde el principio</translation>
    </message>
    <message>
        <source>10 % more</source>
        <translation>10 % más</translation>
    </message>
    <message>
        <source>What counts</source>
        <translation>Qué cuenta</translation>
    </message>
    <message>
        <source>All but the missed</source>
        <translation>Todas menos las fallidas</translation>
    </message>
    <message>
        <source>Only the right ones</source>
        <translation>Solo las correctas</translation>
    </message>
    <message>
        <source>Counts</source>
        <translation>Cuentan</translation>
    </message>
    <message>
        <source>Before a pass</source>
        <translation>Antes de una pasada</translation>
    </message>
    <message>
        <source>Nothing</source>
        <translation>Nada</translation>
    </message>
    <message>
        <source>Count-in</source>
        <translation>Cuenta previa</translation>
    </message>
    <message>
        <source>Run-up</source>
        <translation>Impulso</translation>
    </message>
    <message>
        <source>Rest</source>
        <translation>Silencio</translation>
    </message>
    <message>
        <source>Beats before a pass</source>
        <translation>Pulsos antes de una pasada</translation>
    </message>
    <message>
        <source>beats</source>
        <translation>pulsos</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Antes</translation>
    </message>
    <message>
        <source>When to count in</source>
        <translation>Cuándo contar</translation>
    </message>
    <message>
        <source>At the start</source>
        <translation>Al principio</translation>
    </message>
    <message>
        <source>At a new speed</source>
        <translation>Con cada velocidad nueva</translation>
    </message>
    <message>
        <source>Before every pass</source>
        <translation>Antes de cada pasada</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nunca</translation>
    </message>
    <message>
        <source>This ladder needs the song&apos;s beats.</source>
        <translation>Esta escalera necesita los pulsos de la canción.</translation>
    </message>
    <message>
        <source>Make a loop to train it.</source>
        <translation>Cree un bucle para entrenarlo.</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrainerWords</name>
    <message>
        <source>this pass is missed</source>
        <translation>esta pasada es fallida</translation>
    </message>
    <message>
        <source>this pass is right</source>
        <translation>esta pasada es correcta</translation>
    </message>
    <message>
        <source>slower</source>
        <translation>más lento</translation>
    </message>
    <message>
        <source>missed</source>
        <translation>fallida</translation>
    </message>
    <message>
        <source>at the top</source>
        <translation>en lo más alto</translation>
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
        <translation>pasada %1 de %2</translation>
    </message>
    <message>
        <source>next %1</source>
        <translation>luego %1</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
</context>
<context>
    <name>lyrabox::WaveView</name>
    <message>
        <source>%1, loop from %2 to %3</source>
        <translation>%1, bucle de %2 a %3</translation>
    </message>
    <message>
        <source>Wave</source>
        <translation>Onda</translation>
    </message>
    <message>
        <source>%1, bar %2</source>
        <translation>%1, compás %2</translation>
    </message>
    <message>
        <source>tap here, too</source>
        <translation>marque aquí también</translation>
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
        <translation>%1 en la semana del %2</translation>
    </message>
    <message>
        <source>Week of %1: %2</source>
        <translation>Semana del %1: %2</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Lyrabox is running already but does not answer.</source>
        <translation>Lyrabox ya está abierto, pero no responde.</translation>
    </message>
</context>
</TS>
