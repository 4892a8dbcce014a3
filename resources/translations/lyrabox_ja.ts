<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>AddPopover</name>
    <message>
        <source>Name</source>
        <translation>名前</translation>
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
        <translation>追加するフォルダを選んでください</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>フォルダ</translation>
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
        <translation>使い方: lyrabox [オプション] [ファイル、フォルダ、file: URL]

オーディオファイルは曲のリストになり、最初の曲が再生されます。フォルダはフォルダの
リストに追加されます。すでに起動している場合は、そちらに渡されます。

オプション:
  -h, --help     このヘルプを表示
  -v, --version  バージョンを表示
  --             以降はファイルとフォルダのみ
</translation>
    </message>
</context>
<context>
    <name>EmptyListText</name>
    <message>
        <source>This folder cannot be read.</source>
        <translation>このフォルダは読み取れません。</translation>
    </message>
    <message>
        <source>No songs here.</source>
        <translation>ここに曲はありません。</translation>
    </message>
    <message>
        <source>No songs here. Open the folder with its arrow: 1 folder inside.</source>
        <translation>ここに曲はありません。矢印でフォルダを開いてください: 中に 1 個のフォルダがあります。</translation>
    </message>
    <message numerus="yes">
        <source>No songs here. Open the folder with its arrow: %Ln folders inside.</source>
        <translation>
            <numerusform>ここに曲はありません。矢印でフォルダを開いてください: 中に %Ln 個のフォルダがあります。</numerusform>
        </translation>
    </message>
    <message>
        <source>Nothing matches &apos;%1&apos;.</source>
        <translation>「%1」に一致する曲はありません。</translation>
    </message>
    <message>
        <source>Stopped before a song was read.</source>
        <translation>曲を読み込む前に停止しました。</translation>
    </message>
    <message>
        <source>Choose a playlist or folder</source>
        <translation>プレイリストまたはフォルダを選んでください</translation>
    </message>
    <message>
        <source>This playlist has no songs.</source>
        <translation>このプレイリストに曲はありません。</translation>
    </message>
    <message>
        <source>No songs here or in the folders inside.</source>
        <translation>ここにも中のフォルダにも曲はありません。</translation>
    </message>
</context>
<context>
    <name>EqualizerWindow</name>
    <message>
        <source>Equalizer</source>
        <translation>イコライザ</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>プリセット</translation>
    </message>
    <message>
        <source>Add or remove a preset</source>
        <translation>プリセットを追加・削除</translation>
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
        <translation>31.5 ヘルツのレベル</translation>
    </message>
    <message>
        <source>Level at 63 hertz</source>
        <translation>63 ヘルツのレベル</translation>
    </message>
    <message>
        <source>Level at 125 hertz</source>
        <translation>125 ヘルツのレベル</translation>
    </message>
    <message>
        <source>Level at 250 hertz</source>
        <translation>250 ヘルツのレベル</translation>
    </message>
    <message>
        <source>Level at 500 hertz</source>
        <translation>500 ヘルツのレベル</translation>
    </message>
    <message>
        <source>Level at 1 kilohertz</source>
        <translation>1 キロヘルツのレベル</translation>
    </message>
    <message>
        <source>Level at 2 kilohertz</source>
        <translation>2 キロヘルツのレベル</translation>
    </message>
    <message>
        <source>Level at 4 kilohertz</source>
        <translation>4 キロヘルツのレベル</translation>
    </message>
    <message>
        <source>Level at 8 kilohertz</source>
        <translation>8 キロヘルツのレベル</translation>
    </message>
    <message>
        <source>Level at 16 kilohertz</source>
        <translation>16 キロヘルツのレベル</translation>
    </message>
    <message>
        <source>31.5</source>
        <translation>31.5</translation>
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
        <translation>31.5 ヘルツのレベル (デシベル)</translation>
    </message>
    <message>
        <source>Level at 63 hertz in decibels</source>
        <translation>63 ヘルツのレベル (デシベル)</translation>
    </message>
    <message>
        <source>Level at 125 hertz in decibels</source>
        <translation>125 ヘルツのレベル (デシベル)</translation>
    </message>
    <message>
        <source>Level at 250 hertz in decibels</source>
        <translation>250 ヘルツのレベル (デシベル)</translation>
    </message>
    <message>
        <source>Level at 500 hertz in decibels</source>
        <translation>500 ヘルツのレベル (デシベル)</translation>
    </message>
    <message>
        <source>Level at 1 kilohertz in decibels</source>
        <translation>1 キロヘルツのレベル (デシベル)</translation>
    </message>
    <message>
        <source>Level at 2 kilohertz in decibels</source>
        <translation>2 キロヘルツのレベル (デシベル)</translation>
    </message>
    <message>
        <source>Level at 4 kilohertz in decibels</source>
        <translation>4 キロヘルツのレベル (デシベル)</translation>
    </message>
    <message>
        <source>Level at 8 kilohertz in decibels</source>
        <translation>8 キロヘルツのレベル (デシベル)</translation>
    </message>
    <message>
        <source>Level at 16 kilohertz in decibels</source>
        <translation>16 キロヘルツのレベル (デシベル)</translation>
    </message>
    <message>
        <source>Steps at 31.5 hertz</source>
        <translation>31.5 ヘルツのステップ</translation>
    </message>
    <message>
        <source>Steps at 63 hertz</source>
        <translation>63 ヘルツのステップ</translation>
    </message>
    <message>
        <source>Steps at 125 hertz</source>
        <translation>125 ヘルツのステップ</translation>
    </message>
    <message>
        <source>Steps at 250 hertz</source>
        <translation>250 ヘルツのステップ</translation>
    </message>
    <message>
        <source>Steps at 500 hertz</source>
        <translation>500 ヘルツのステップ</translation>
    </message>
    <message>
        <source>Steps at 1 kilohertz</source>
        <translation>1 キロヘルツのステップ</translation>
    </message>
    <message>
        <source>Steps at 2 kilohertz</source>
        <translation>2 キロヘルツのステップ</translation>
    </message>
    <message>
        <source>Steps at 4 kilohertz</source>
        <translation>4 キロヘルツのステップ</translation>
    </message>
    <message>
        <source>Steps at 8 kilohertz</source>
        <translation>8 キロヘルツのステップ</translation>
    </message>
    <message>
        <source>Steps at 16 kilohertz</source>
        <translation>16 キロヘルツのステップ</translation>
    </message>
    <message>
        <source>Levels</source>
        <translation>レベル</translation>
    </message>
</context>
<context>
    <name>HelpText</name>
    <message>
        <source>Version %1
A music-practice player.
Free software under the GNU General Public License, version 3 or later.</source>
        <translation>バージョン %1
音楽練習用プレーヤー。
GNU 一般公衆利用許諾書バージョン 3 以降に基づくフリーソフトウェアです。</translation>
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
        <translation>Space: 再生・一時停止
←、→: 押すと前の曲・次の曲、長押しで曲の中を移動
Shift+←、Shift+→: 5 秒戻る・進む
L: ループの始点、次に終点を設定、もう一度で解除
- と =: 遅く・速く、0: 標準の速度
[ と ]: 半音下げる・上げる、\: 元のピッチ
Ctrl+↑、Ctrl+↓: 音量
Return: 選択した曲を再生
Ctrl+S: 曲の速度とピッチを保存
Ctrl+F: 検索
Ctrl+L、Ctrl+B: 曲のリスト、プレイリストとフォルダ
Delete、Insert: フォルダやプリセットの削除、プリセットの追加
Tab と矢印キー: その他すべての操作
Ctrl+1、Ctrl+2: メインウインドウ、イコライザ</translation>
    </message>
    <message>
        <source>%1: the practice pane; while it is open:</source>
        <translation>%1: 練習パネル。開いている間:</translation>
    </message>
    <message>
        <source>%1: pedals and keys</source>
        <translation>%1：ペダルとキー</translation>
    </message>
</context>
<context>
    <name>LB_AudioController</name>
    <message>
        <source>Lyrabox cannot build its audio system. (Error %1)</source>
        <translation>Lyrabox はオーディオシステムを構築できません。(エラー %1)</translation>
    </message>
    <message>
        <source>The program will now terminate</source>
        <translation>プログラムを終了します</translation>
    </message>
    <message>
        <source>No sound: the sound server does not answer</source>
        <translation>音が出ません: サウンドサーバーが応答しません</translation>
    </message>
</context>
<context>
    <name>LB_EqualizerController</name>
    <message>
        <source>Enter a name for the new preset</source>
        <translation>新しいプリセットの名前</translation>
    </message>
    <message>
        <source>New Preset</source>
        <translation>新規プリセット</translation>
    </message>
    <message>
        <source>Remove preset &apos;%1&apos;?</source>
        <translation>プリセット「%1」を削除しますか？</translation>
    </message>
    <message>
        <source>Add a preset</source>
        <translation>プリセットを追加</translation>
    </message>
    <message>
        <source>Remove the preset</source>
        <translation>プリセットを削除</translation>
    </message>
</context>
<context>
    <name>LB_FolderSourceController</name>
    <message>
        <source>No folders yet. Press + to add one, or drop a folder here.</source>
        <translation>フォルダがありません。＋で追加するか、ここにフォルダをドロップしてください。</translation>
    </message>
    <message>
        <source>Remove folder &apos;%1&apos;?</source>
        <translation>フォルダ「%1」を削除しますか？</translation>
    </message>
</context>
<context>
    <name>LB_NavigationView</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
</context>
<context>
    <name>LB_PlaylistSourceController</name>
    <message>
        <source>No playlists. Choose a music library in the File menu, or add folders on the other tab.</source>
        <translation>プレイリストがありません。「ファイル」メニューで音楽ライブラリを選ぶか、もう一方のタブでフォルダを追加してください。</translation>
    </message>
</context>
<context>
    <name>LB_QueueController</name>
    <message>
        <source>Error loading &apos;%1&apos; (%2)</source>
        <translation>「%1」を読み込めません (%2)</translation>
    </message>
</context>
<context>
    <name>LB_SettingsController</name>
    <message>
        <source>Untitled</source>
        <translation>名称未設定</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Source list</source>
        <translation>ソース一覧</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>プレイリスト</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>フォルダ</translation>
    </message>
    <message>
        <source>Add or remove a folder</source>
        <translation>フォルダを追加・削除</translation>
    </message>
    <message>
        <source>Number of songs</source>
        <translation>曲数</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>Shuffle</source>
        <translation>シャッフル</translation>
    </message>
    <message>
        <source>Play the list in random order</source>
        <translation>リストをランダムに再生</translation>
    </message>
    <message>
        <source>Search songs</source>
        <translation>曲を検索</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>曲</translation>
    </message>
    <message>
        <source>Transport</source>
        <translation>再生操作</translation>
    </message>
    <message>
        <source>Artwork</source>
        <translation>アートワーク</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>タイトル</translation>
    </message>
    <message>
        <source>Artist and album</source>
        <translation>アーティストとアルバム</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>再生位置</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Previous song; hold to rewind</source>
        <translation>前の曲・長押しで早戻し</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>再生・一時停止</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>進む</translation>
    </message>
    <message>
        <source>Next song; hold to fast-forward</source>
        <translation>次の曲・長押しで早送り</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>ループ</translation>
    </message>
    <message>
        <source>Mark the start of a loop, then its end</source>
        <translation>ループの始点、次に終点を設定</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>Speed steps</source>
        <translation>速度のステップ</translation>
    </message>
    <message>
        <source>Speed in percent</source>
        <translation>速度 (パーセント)</translation>
    </message>
    <message>
        <source>Pitch (cents)</source>
        <translation>ピッチ (セント)</translation>
    </message>
    <message>
        <source>Pitch steps</source>
        <translation>ピッチのステップ</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>ピッチ</translation>
    </message>
    <message>
        <source>Pitch in cents</source>
        <translation>ピッチ (セント単位)</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>Song settings</source>
        <translation>曲の設定</translation>
    </message>
    <message>
        <source>Keep or forget the speed and pitch of this song</source>
        <translation>この曲の速度とピッチを保存・消去</translation>
    </message>
</context>
<context>
    <name>MusicLibrary</name>
    <message>
        <source>Music</source>
        <translation>ミュージック</translation>
    </message>
</context>
<context>
    <name>OpenText</name>
    <message numerus="yes">
        <source>&apos;%1&apos; and %n more could not be opened</source>
        <translation>
            <numerusform>「%1」とほか %n 個を開けませんでした</numerusform>
        </translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a file on this computer</source>
        <translation>「%1」はこのコンピュータ上のファイルではありません</translation>
    </message>
    <message>
        <source>There is no &apos;%1&apos;</source>
        <translation>「%1」はありません</translation>
    </message>
    <message>
        <source>&apos;%1&apos; may not be read</source>
        <translation>「%1」を読み取る権限がありません</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not an audio file</source>
        <translation>「%1」はオーディオファイルではありません</translation>
    </message>
</context>
<context>
    <name>ProgressText</name>
    <message numerus="yes">
        <source>Reading songs: %1 of %Ln</source>
        <translation>
            <numerusform>曲を読み込み中: %1 / %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Loading: %Ln seconds</source>
        <translation>
            <numerusform>読み込み中: %Ln 秒</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Loading: %1 of %Ln seconds</source>
        <translation>
            <numerusform>読み込み中: %1 / %Ln 秒</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Searching folders: %Ln files</source>
        <translation>
            <numerusform>フォルダを検索中: %Ln ファイル</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Skipping songs that cannot be loaded: %1 of %Ln</source>
        <translation>
            <numerusform>読み込めない曲をスキップ中: %1 / %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>Escape stops it</source>
        <translation>Esc キーで停止</translation>
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
        <translation>1 曲</translation>
    </message>
    <message numerus="yes">
        <source>%n songs</source>
        <translation>
            <numerusform>%n 曲</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>UpdateDialog</name>
    <message>
        <source>Updates</source>
        <translation>アップデート</translation>
    </message>
    <message>
        <source>Lyrabox %1 is available.</source>
        <translation>Lyrabox %1 が利用できます。</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>リリースノート</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>あとで</translation>
    </message>
    <message>
        <source>Open Its Page</source>
        <translation>ページを開く</translation>
    </message>
</context>
<context>
    <name>lyrabox::AssignmentRows</name>
    <message>
        <source>Unknown</source>
        <translation>不明</translation>
    </message>
    <message>
        <source>Pedal or knob</source>
        <translation>ペダルまたはつまみ</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>コマンド</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>メニュー</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>キー</translation>
    </message>
    <message>
        <source>Pedals</source>
        <translation>ペダル</translation>
    </message>
</context>
<context>
    <name>lyrabox::BarText</name>
    <message>
        <source>1 bar</source>
        <translation>1小節</translation>
    </message>
    <message>
        <source>%1 bars</source>
        <translation>%1小節</translation>
    </message>
    <message>
        <source>1 beat</source>
        <translation>1拍</translation>
    </message>
    <message>
        <source>%1 beats</source>
        <translation>%1拍</translation>
    </message>
</context>
<context>
    <name>lyrabox::BeatPage</name>
    <message>
        <source>Play the song, and tap along with it.</source>
        <translation>曲を再生して、合わせてタップしてください。</translation>
    </message>
    <message>
        <source>Tap along with at least four different beats.</source>
        <translation>4つ以上の異なる拍をタップしてください。</translation>
    </message>
    <message>
        <source>These taps are slower than %1 BPM. Tap every beat.</source>
        <translation>%1 BPMより遅いタップです。すべての拍をタップしてください。</translation>
    </message>
    <message>
        <source>These taps are faster than %1 BPM. Tap every second one.</source>
        <translation>%1 BPMより速いタップです。1つおきにタップしてください。</translation>
    </message>
    <message>
        <source>These taps are uneven. Wait a moment, and begin again at the first beat of a bar.</source>
        <translation>タップが不揃いです。少し待って、小節の1拍目からやり直してください。</translation>
    </message>
    <message>
        <source>The song has no beats of this tempo. Tap them instead.</source>
        <translation>このテンポの拍は見つかりません。タップしてください。</translation>
    </message>
    <message>
        <source>The beats of this song cannot be changed.</source>
        <translation>この曲の拍は変更できません。</translation>
    </message>
    <message>
        <source>Tap %1 of %2 …</source>
        <translation>タップ %1／%2…</translation>
    </message>
    <message>
        <source>Listening to the song …</source>
        <translation>曲を解析しています…</translation>
    </message>
    <message>
        <source>The beats of the whole song are known.</source>
        <translation>曲全体の拍がわかっています。</translation>
    </message>
    <message>
        <source>Where the wave is hatched, the beats are not known. Tap there, too.</source>
        <translation>斜線の部分は拍が不明です。そこもタップしてください。</translation>
    </message>
    <message>
        <source>About %1 BPM. Use this, or tap eight beats from a first beat on.</source>
        <translation>約%1 BPM。これを使うか、1拍目から8回タップしてください。</translation>
    </message>
    <message>
        <source>Tap eight beats along with the song. Begin at the first beat of a bar.</source>
        <translation>曲に合わせて8回タップしてください。小節の1拍目から始めます。</translation>
    </message>
    <message>
        <source>First beat</source>
        <translation>1拍目</translation>
    </message>
    <message>
        <source>Tap</source>
        <translation>タップ</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>使う</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>消去</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>テンポ</translation>
    </message>
    <message>
        <source>Tempo of the song in beats per minute</source>
        <translation>曲のテンポ（1分あたりの拍数）</translation>
    </message>
    <message>
        <source>Meter</source>
        <translation>拍子</translation>
    </message>
    <message>
        <source>Change the bars only from the bar at the line on</source>
        <translation>線のある小節から後だけ変更</translation>
    </message>
    <message>
        <source>One beat less per bar</source>
        <translation>1小節を1拍減らす</translation>
    </message>
    <message>
        <source>One beat more per bar</source>
        <translation>1小節を1拍増やす</translation>
    </message>
    <message>
        <source>Beats per bar</source>
        <translation>1小節の拍数</translation>
    </message>
    <message>
        <source>from bar %1</source>
        <translation>%1小節から</translation>
    </message>
    <message>
        <source>from here</source>
        <translation>ここから</translation>
    </message>
</context>
<context>
    <name>lyrabox::CentrePanel</name>
    <message>
        <source>Centre</source>
        <translation>センター</translation>
    </message>
    <message>
        <source>Lowest frequency of the middle</source>
        <translation>中央とみなす最低周波数</translation>
    </message>
    <message>
        <source>Highest frequency of the middle</source>
        <translation>中央とみなす最高周波数</translation>
    </message>
    <message>
        <source>What lies below or above does not count as the middle, such as bass and cymbals.</source>
        <translation>これより低い音や高い音（ベースやシンバルなど）は中央とみなしません。</translation>
    </message>
    <message>
        <source>From</source>
        <translation>下限</translation>
    </message>
    <message>
        <source>Hz</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>To</source>
        <translation>上限</translation>
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
        <translation>クリック</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>音</translation>
    </message>
    <message>
        <source>Tick</source>
        <translation>チック</translation>
    </message>
    <message>
        <source>Wood</source>
        <translation>ウッド</translation>
    </message>
    <message>
        <source>Beep</source>
        <translation>ビープ</translation>
    </message>
    <message>
        <source>Side</source>
        <translation>左右</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>両方</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右</translation>
    </message>
    <message>
        <source>Accent</source>
        <translation>アクセント</translation>
    </message>
    <message>
        <source>On 1</source>
        <translation>1拍目</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Beats</source>
        <translation>拍</translation>
    </message>
    <message>
        <source>All</source>
        <translation>すべて</translation>
    </message>
    <message>
        <source>Only 2 and 4</source>
        <translation>2と4のみ</translation>
    </message>
    <message>
        <source>Clicks in a beat</source>
        <translation>1拍のクリック数</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>Bars that sound</source>
        <translation>鳴らす小節数</translation>
    </message>
    <message>
        <source>Silent bars</source>
        <translation>無音の小節数</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>小節</translation>
    </message>
    <message>
        <source>sound, then</source>
        <translation>小節鳴り、次の</translation>
    </message>
    <message>
        <source>silent</source>
        <translation>小節は無音</translation>
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
        <translation>5% 遅く</translation>
    </message>
    <message>
        <source>Normal speed</source>
        <translation>標準の速度</translation>
    </message>
    <message>
        <source>Faster by 5 percent</source>
        <translation>5% 速く</translation>
    </message>
    <message>
        <source>A semitone down</source>
        <translation>半音下げる</translation>
    </message>
    <message>
        <source>Original pitch</source>
        <translation>元のピッチ</translation>
    </message>
    <message>
        <source>A semitone up</source>
        <translation>半音上げる</translation>
    </message>
    <message>
        <source>Add a folder</source>
        <translation>フォルダを追加</translation>
    </message>
    <message>
        <source>Remove the folder</source>
        <translation>フォルダを削除</translation>
    </message>
    <message>
        <source>Down 1 decibel</source>
        <translation>1 デシベル下げる</translation>
    </message>
    <message>
        <source>0 decibels</source>
        <translation>0 デシベル</translation>
    </message>
    <message>
        <source>Up 1 decibel</source>
        <translation>1 デシベル上げる</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>プレイリスト</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>フォルダ</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Mark the start of a loop</source>
        <translation>ループの始点を設定</translation>
    </message>
    <message>
        <source>Mark the end of the loop</source>
        <translation>ループの終点を設定</translation>
    </message>
    <message>
        <source>Clear the loop</source>
        <translation>ループを解除</translation>
    </message>
    <message>
        <source>Shuffle</source>
        <translation>シャッフル</translation>
    </message>
    <message>
        <source>Play in order</source>
        <translation>順番に再生</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>キー操作</translation>
    </message>
    <message>
        <source>About Lyrabox</source>
        <translation>Lyrabox について</translation>
    </message>
    <message>
        <source>Choose Music Library</source>
        <translation>音楽ライブラリを選択</translation>
    </message>
    <message>
        <source>Music libraries (*.xml *.plist);;All files (*)</source>
        <translation>音楽ライブラリ (*.xml *.plist);;すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Music library chosen</source>
        <translation>音楽ライブラリを選択しました</translation>
    </message>
    <message>
        <source>Its playlists are shown from the next start of Lyrabox on.</source>
        <translation>プレイリストは次回の Lyrabox の起動時から表示されます。</translation>
    </message>
    <message>
        <source>The music library could not be chosen</source>
        <translation>音楽ライブラリを選択できませんでした</translation>
    </message>
    <message>
        <source>The preferences could not be written.</source>
        <translation>環境設定を書き込めませんでした。</translation>
    </message>
    <message>
        <source>Remove Folder…</source>
        <translation>フォルダを削除…</translation>
    </message>
    <message>
        <source>Add Preset…</source>
        <translation>プリセットを追加…</translation>
    </message>
    <message>
        <source>Remove Preset…</source>
        <translation>プリセットを削除…</translation>
    </message>
    <message>
        <source>Songs cannot be opened (%1)</source>
        <translation>曲を開けません (%1)</translation>
    </message>
    <message>
        <source>Stopped: not all songs are in the list</source>
        <translation>停止しました: 一部の曲はリストにありません</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>ピッチ</translation>
    </message>
</context>
<context>
    <name>lyrabox::CountInSettingsPanel</name>
    <message>
        <source>Count-in</source>
        <translation>カウントイン</translation>
    </message>
    <message>
        <source>When</source>
        <translation>タイミング</translation>
    </message>
    <message>
        <source>At Play</source>
        <translation>再生時</translation>
    </message>
    <message>
        <source>Before every pass</source>
        <translation>毎回の前</translation>
    </message>
    <message>
        <source>1 bar</source>
        <translation>1小節</translation>
    </message>
    <message>
        <source>2 bars</source>
        <translation>2小節</translation>
    </message>
    <message>
        <source>Beats</source>
        <translation>拍</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>長さ</translation>
    </message>
    <message>
        <source>Beats of the count-in</source>
        <translation>カウントインの拍数</translation>
    </message>
    <message>
        <source>Bars of the loop</source>
        <translation>ループの小節数</translation>
    </message>
    <message>
        <source>Beats of a bar</source>
        <translation>1小節の拍数</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>bars of</source>
        <translation>小節 ×</translation>
    </message>
    <message>
        <source>This loop has</source>
        <translation>このループは</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>消去</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportForm</name>
    <message>
        <source>Format</source>
        <translation>形式</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>ループ</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>曲</translation>
    </message>
    <message>
        <source>Every Loop</source>
        <translation>すべてのループ</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>書き出す対象</translation>
    </message>
    <message>
        <source>Times</source>
        <translation>回数</translation>
    </message>
    <message>
        <source>As the Ladder</source>
        <translation>段階どおり</translation>
    </message>
    <message>
        <source>Speed and Pitch</source>
        <translation>速度とピッチ</translation>
    </message>
    <message>
        <source>Equalizer</source>
        <translation>イコライザ</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>チャンネル</translation>
    </message>
    <message>
        <source>Click</source>
        <translation>クリック</translation>
    </message>
    <message>
        <source>As heard</source>
        <translation>聞こえるとおり</translation>
    </message>
    <message>
        <source>This is as in the song.</source>
        <translation>曲のままです。</translation>
    </message>
    <message>
        <source>There is no loop.</source>
        <translation>ループがありません。</translation>
    </message>
    <message>
        <source>As the Ladder, %1</source>
        <translation>段階どおり、%1</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportRows</name>
    <message>
        <source>Waiting</source>
        <translation>待機中</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportText</name>
    <message>
        <source>This format cannot be written here.</source>
        <translation>この形式はここでは書き出せません。</translation>
    </message>
    <message>
        <source>Songs cannot be read here.</source>
        <translation>ここでは曲を読み込めません。</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>メモリが足りません。</translation>
    </message>
    <message>
        <source>There is nothing to export: the loop lies beyond the end of the song.</source>
        <translation>書き出すものがありません。ループが曲の終わりより後ろにあります。</translation>
    </message>
    <message>
        <source>The disk failed while the song was read or the file was written.</source>
        <translation>曲の読み込み中またはファイルの書き込み中にディスクのエラーが起きました。</translation>
    </message>
    <message>
        <source>The export failed (%1).</source>
        <translation>書き出しに失敗しました (%1)。</translation>
    </message>
    <message>
        <source>FLAC (lossless)</source>
        <translation>FLAC（可逆圧縮）</translation>
    </message>
    <message>
        <source>WAV, 16 bits</source>
        <translation>WAV、16 ビット</translation>
    </message>
    <message>
        <source>WAV, 24 bits</source>
        <translation>WAV、24 ビット</translation>
    </message>
    <message>
        <source>WAV, 32 bits (float)</source>
        <translation>WAV、32 ビット（浮動小数点）</translation>
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
        <translation>曲のファイルがありません。</translation>
    </message>
    <message>
        <source>The song&apos;s file may not be read.</source>
        <translation>曲のファイルを読み込む権限がありません。</translation>
    </message>
    <message>
        <source>The song&apos;s file has changed. Open it again, then export it.</source>
        <translation>曲のファイルが変更されました。開き直してから書き出してください。</translation>
    </message>
    <message>
        <source>The song&apos;s file cannot be read.</source>
        <translation>曲のファイルを読み込めません。</translation>
    </message>
    <message>
        <source>The folder is gone.</source>
        <translation>フォルダがありません。</translation>
    </message>
    <message>
        <source>The file may not be written there.</source>
        <translation>ファイルをそこに書き込めません。</translation>
    </message>
    <message>
        <source>The name is too long for this disk.</source>
        <translation>このディスクには名前が長すぎます。</translation>
    </message>
    <message>
        <source>The disk is full.</source>
        <translation>ディスクの空き容量がありません。</translation>
    </message>
    <message>
        <source>The file is too large for this disk.</source>
        <translation>このディスクにはファイルが大きすぎます。</translation>
    </message>
    <message>
        <source>about %1 s</source>
        <translation>約 %1 秒</translation>
    </message>
    <message>
        <source>about %1 min</source>
        <translation>約 %1 分</translation>
    </message>
    <message>
        <source>%1 · about %2 · ready in %3</source>
        <translation>%1・約 %2・%3で完了</translation>
    </message>
</context>
<context>
    <name>lyrabox::ExportWindow</name>
    <message>
        <source>Choose…</source>
        <translation>選択…</translation>
    </message>
    <message>
        <source>Cancel Export</source>
        <translation>書き出しを中止</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>書き出し</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>フォルダ</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Exports</source>
        <translation>書き出し一覧</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Choose the folder, now %1</source>
        <translation>フォルダを選択（現在は %1）</translation>
    </message>
    <message>
        <source>Folder for Exports</source>
        <translation>書き出し先のフォルダ</translation>
    </message>
    <message>
        <source>%1 to %2 %</source>
        <translation>%1～%2 %</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>each its own</source>
        <translation>それぞれの段階</translation>
    </message>
    <message>
        <source>%1 - name of the loop</source>
        <translation>%1 - ループの名前</translation>
    </message>
    <message numerus="yes">
        <source>%n files: %1</source>
        <translation>
            <numerusform>%n ファイル：%1</numerusform>
        </translation>
    </message>
    <message>
        <source>This song has no loops.</source>
        <translation>この曲にはループがありません。</translation>
    </message>
    <message>
        <source>Play a song, with the practice pane open, to export it.</source>
        <translation>曲を書き出すには、練習パネルを開いて曲を再生してください。</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>曲</translation>
    </message>
    <message>
        <source>“%1” is being exported already.</source>
        <translation>「%1」はすでに書き出し中です。</translation>
    </message>
    <message>
        <source>The disk of the folder does not answer.</source>
        <translation>フォルダのディスクが応答しません。</translation>
    </message>
    <message>
        <source>The folder is gone. Choose another one.</source>
        <translation>フォルダがありません。ほかのフォルダを選んでください。</translation>
    </message>
    <message>
        <source>“%1” exists already. Replace it?</source>
        <translation>「%1」はすでにあります。置き換えますか？</translation>
    </message>
    <message numerus="yes">
        <source>%n files of these names exist already. Replace them?</source>
        <translation>
            <numerusform>同じ名前のファイルが %n 個あります。置き換えますか？</numerusform>
        </translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>置き換える</translation>
    </message>
    <message>
        <source>Nothing can be exported here: the encoders are missing.</source>
        <translation>エンコーダがないため、ここでは何も書き出せません。</translation>
    </message>
</context>
<context>
    <name>lyrabox::HistoryLoops</name>
    <message>
        <source>%1 to %2</source>
        <translation>%1 ～ %2</translation>
    </message>
    <message>
        <source>This Song</source>
        <translation>この曲</translation>
    </message>
    <message>
        <source>Other Songs, Longest Not Practised First</source>
        <translation>ほかの曲 (長く練習していない順)</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>今日</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>昨日</translation>
    </message>
    <message>
        <source>none</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>ループ</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>曲</translation>
    </message>
    <message>
        <source>Best</source>
        <translation>最高</translation>
    </message>
    <message>
        <source>Practised</source>
        <translation>練習日</translation>
    </message>
</context>
<context>
    <name>lyrabox::HistoryWindow</name>
    <message>
        <source>Day</source>
        <translation>日</translation>
    </message>
    <message>
        <source>Best Speed</source>
        <translation>最高速度</translation>
    </message>
    <message>
        <source>Week</source>
        <translation>週</translation>
    </message>
    <message>
        <source>Practised</source>
        <translation>練習時間</translation>
    </message>
    <message>
        <source>Forget History…</source>
        <translation>履歴を消去…</translation>
    </message>
    <message>
        <source>Practice History</source>
        <translation>練習履歴</translation>
    </message>
    <message>
        <source>Nothing was practised yet. Keep a loop and play it: its best speed of each day, and the minutes of each week, appear here.</source>
        <translation>まだ練習していません。ループを保存して再生すると、日ごとの最高速度と週ごとの時間がここに表示されます。</translation>
    </message>
    <message>
        <source>Practised loops</source>
        <translation>練習したループ</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>グラフ</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>表</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>表示形式</translation>
    </message>
    <message>
        <source>Best Speed of Each Day</source>
        <translation>日ごとの最高速度</translation>
    </message>
    <message>
        <source>Minutes of Each Week, All Loops</source>
        <translation>週ごとの時間 (すべてのループ)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>The history is kept on this computer only.</source>
        <translation>履歴はこのコンピューターだけに保存されます。</translation>
    </message>
    <message>
        <source>The history could not be deleted.</source>
        <translation>履歴を削除できませんでした。</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Forget the whole history?</source>
        <translation>履歴をすべて消去しますか？</translation>
    </message>
    <message>
        <source>The best speeds and the minutes of all songs are deleted from this computer. They were never anywhere else. Loops and markers stay.</source>
        <translation>すべての曲の最高速度と練習時間をこのコンピューターから削除します。ほかの場所には保存されていません。ループとマーカーは残ります。</translation>
    </message>
    <message>
        <source>Forget History</source>
        <translation>履歴を消去</translation>
    </message>
</context>
<context>
    <name>lyrabox::Learner</name>
    <message>
        <source>Move the pedal or knob for “%1”. Escape cancels.</source>
        <translation>「%1」用のペダルまたはつまみを動かしてください。Esc でキャンセルします。</translation>
    </message>
    <message>
        <source>Press a key or a pedal for “%1”. Escape cancels.</source>
        <translation>「%1」用のキーまたはペダルを押してください。Esc でキャンセルします。</translation>
    </message>
    <message>
        <source>%1 is needed in every window. Press another key or a pedal. Escape cancels.</source>
        <translation>%1 はすべてのウインドウで必要です。別のキーかペダルを押してください。Esc でキャンセルします。</translation>
    </message>
    <message>
        <source>%1 is assigned to “%2”. Use it for “%3” instead?</source>
        <translation>%1 は「%2」に割り当てられています。代わりに「%3」に使いますか？</translation>
    </message>
    <message>
        <source>There is no room for more.</source>
        <translation>これ以上は追加できません。</translation>
    </message>
    <message>
        <source>%1 is now “%2”.</source>
        <translation>%1 は「%2」になりました。</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopColors</name>
    <message>
        <source>Violet</source>
        <translation>紫</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>赤</translation>
    </message>
    <message>
        <source>Brown</source>
        <translation>茶</translation>
    </message>
    <message>
        <source>Olive</source>
        <translation>オリーブ</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>緑</translation>
    </message>
    <message>
        <source>Teal</source>
        <translation>青緑</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>青</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>灰色</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopEdits</name>
    <message>
        <source>Loop %1</source>
        <translation>ループ %1</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopEnds</name>
    <message>
        <source>Start</source>
        <translation>始点</translation>
    </message>
    <message>
        <source>Start of the loop</source>
        <translation>ループの始点</translation>
    </message>
    <message>
        <source>End</source>
        <translation>終点</translation>
    </message>
    <message>
        <source>End of the loop</source>
        <translation>ループの終点</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 秒</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopList</name>
    <message>
        <source>Loops and markers</source>
        <translation>ループとマーカー</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>再生(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>名前を変更(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Note…</source>
        <translation>メモ(&amp;N)…</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>削除(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Colour</source>
        <translation>色(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Keep Speed and Pitch</source>
        <translation>速度とピッチを保存(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Forget Speed and Pitch</source>
        <translation>速度とピッチを消去(&amp;F)</translation>
    </message>
    <message>
        <source>Note for “%1”</source>
        <translation>「%1」のメモ</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>メモ</translation>
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
        <translation>マーカー</translation>
    </message>
    <message>
        <source>Loop %1</source>
        <translation>ループ %1</translation>
    </message>
    <message>
        <source>Beyond the end of the song</source>
        <translation>曲の終わりより後</translation>
    </message>
    <message>
        <source>Pitch: %1 cents</source>
        <translation>ピッチ: %1 セント</translation>
    </message>
    <message>
        <source>Loop %1, called up</source>
        <translation>ループ %1 (呼び出し中)</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 から %2</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>番号</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>Best speed: %1 %</source>
        <translation>最高速度: %1 %</translation>
    </message>
    <message>
        <source>Best Speed</source>
        <translation>最高速度</translation>
    </message>
</context>
<context>
    <name>lyrabox::LoopsPage</name>
    <message>
        <source>The loops and markers of a song are listed here.</source>
        <translation>曲のループとマーカーがここに表示されます。</translation>
    </message>
    <message>
        <source>Press K to keep the loop that sounds, M to set a marker.</source>
        <translation>K で鳴っているループを保存、M でマーカーを設定します。</translation>
    </message>
</context>
<context>
    <name>lyrabox::MainMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Add Folder…</source>
        <translation>フォルダを追加(&amp;A)…</translation>
    </message>
    <message>
        <source>Choose &amp;Music Library…</source>
        <translation>音楽ライブラリを選択(&amp;M)…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Search Songs</source>
        <translation>曲を検索(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Playback</source>
        <translation>再生(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Play or Pause</source>
        <translation>再生・一時停止(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Next Song</source>
        <translation>次の曲(&amp;N)</translation>
    </message>
    <message>
        <source>P&amp;revious Song</source>
        <translation>前の曲(&amp;R)</translation>
    </message>
    <message>
        <source>S&amp;huffle</source>
        <translation>シャッフル(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Loop</source>
        <translation>ループ(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Faster</source>
        <translation>速く(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Slower</source>
        <translation>遅く(&amp;S)</translation>
    </message>
    <message>
        <source>N&amp;ormal Speed</source>
        <translation>標準の速度(&amp;O)</translation>
    </message>
    <message>
        <source>Pitch &amp;Up</source>
        <translation>ピッチを上げる(&amp;U)</translation>
    </message>
    <message>
        <source>Pitch &amp;Down</source>
        <translation>ピッチを下げる(&amp;D)</translation>
    </message>
    <message>
        <source>Or&amp;iginal Pitch</source>
        <translation>元のピッチ(&amp;I)</translation>
    </message>
    <message>
        <source>Loud&amp;er</source>
        <translation>音量を上げる(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Quieter</source>
        <translation>音量を下げる(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Song</source>
        <translation>曲(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Keep Speed and Pitch</source>
        <translation>速度とピッチを保存(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Forget Speed and Pitch</source>
        <translation>速度とピッチを消去(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Show Playing Song</source>
        <translation>再生中の曲を表示(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>ウインドウ(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Lyrabox</source>
        <translation>Lyrabox(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Equalizer</source>
        <translation>イコライザ(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>キー操作(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Email Support…</source>
        <translation>サポートにメール(&amp;E)…</translation>
    </message>
    <message>
        <source>&amp;Website</source>
        <translation>ウェブサイト(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Check for Updates…</source>
        <translation>アップデートを確認(&amp;C)…</translation>
    </message>
    <message>
        <source>&amp;About Lyrabox</source>
        <translation>Lyrabox について(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>Song &amp;List</source>
        <translation>曲のリスト(&amp;L)</translation>
    </message>
    <message>
        <source>Playlists and &amp;Folders</source>
        <translation>プレイリストとフォルダ(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Back 5 Seconds</source>
        <translation>5 秒戻る(&amp;B)</translation>
    </message>
    <message>
        <source>For&amp;ward 5 Seconds</source>
        <translation>5 秒進む(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>ウインドウを閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Sort By</source>
        <translation>並べ替え(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Playing</source>
        <translation>再生中(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Title</source>
        <translation>タイトル(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Artist</source>
        <translation>アーティスト(&amp;A)</translation>
    </message>
    <message>
        <source>A&amp;lbum</source>
        <translation>アルバム(&amp;L)</translation>
    </message>
    <message>
        <source>T&amp;ime</source>
        <translation>時間(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Kept Speed and Pitch</source>
        <translation>保存した速度とピッチ(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Reverse Order</source>
        <translation>逆順(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Include Subfolders</source>
        <translation>サブフォルダを含める(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Own Order</source>
        <translation>元の順序(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Practice Pane</source>
        <translation>練習パネル(&amp;P)</translation>
    </message>
    <message>
        <source>Pract&amp;ice</source>
        <translation>練習(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Pedals and Keys…</source>
        <translation>ペダルとキー(&amp;P)…</translation>
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
        <translation>曲を再生中です</translation>
    </message>
</context>
<context>
    <name>lyrabox::MetronomeText</name>
    <message>
        <source>Tap the beat first: T</source>
        <translation>先に拍をタップしてください: T</translation>
    </message>
    <message>
        <source>Tap the beat first: T. Or make a loop and say how many bars it has.</source>
        <translation>先に拍をタップしてください: T。またはループを作り、小節数を指定してください。</translation>
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
        <translation>D♭</translation>
    </message>
    <message>
        <source>D</source>
        <translation>D</translation>
    </message>
    <message>
        <source>E♭</source>
        <translation>E♭</translation>
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
        <translation>F♯</translation>
    </message>
    <message>
        <source>G</source>
        <translation>G</translation>
    </message>
    <message>
        <source>A♭</source>
        <translation>A♭</translation>
    </message>
    <message>
        <source>A</source>
        <translation>A</translation>
    </message>
    <message>
        <source>B♭</source>
        <translation>B♭</translation>
    </message>
    <message>
        <source>B</source>
        <translation>B</translation>
    </message>
    <message>
        <source>C♯</source>
        <translation>C♯</translation>
    </message>
    <message>
        <source>D♯</source>
        <translation>D♯</translation>
    </message>
    <message>
        <source>G♯</source>
        <translation>G♯</translation>
    </message>
</context>
<context>
    <name>lyrabox::PaneDivider</name>
    <message>
        <source>Height of the practice pane</source>
        <translation>練習パネルの高さ</translation>
    </message>
</context>
<context>
    <name>lyrabox::PedalAssignments</name>
    <message>
        <source>“%1”</source>
        <translation>「%1」</translation>
    </message>
</context>
<context>
    <name>lyrabox::PedalsWindow</name>
    <message>
        <source>Controller %1</source>
        <translation>コントローラー %1</translation>
    </message>
    <message>
        <source>Note %1</source>
        <translation>ノート %1</translation>
    </message>
    <message>
        <source>Program %1</source>
        <translation>プログラム %1</translation>
    </message>
    <message>
        <source>Pitch bend</source>
        <translation>ピッチベンド</translation>
    </message>
    <message>
        <source>Pressure</source>
        <translation>プレッシャー</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%2 の%1</translation>
    </message>
    <message>
        <source>%1, double tap</source>
        <translation>%1（ダブルタップ）</translation>
    </message>
    <message>
        <source>%1, hold</source>
        <translation>%1（長押し）</translation>
    </message>
    <message>
        <source>Ready-Made Sets</source>
        <translation>既製のセット</translation>
    </message>
    <message>
        <source>Use It Here</source>
        <translation>ここで使う</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Pedals and Keys</source>
        <translation>ペダルとキー</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>コマンド</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>Search commands</source>
        <translation>コマンドを検索</translation>
    </message>
    <message>
        <source>&amp;Two Switches (Controllers 64 and 67)</source>
        <translation>スイッチ 2 個（コントローラー 64 と 67）(&amp;T)</translation>
    </message>
    <message>
        <source>Two Switches and an &amp;Expression Pedal</source>
        <translation>スイッチ 2 個とエクスプレッションペダル(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Page Turner: Page Up and Page Down</source>
        <translation>譜めくり：Page Up と Page Down(&amp;P)</translation>
    </message>
    <message>
        <source>Page Turner: &amp;Arrow Keys</source>
        <translation>譜めくり：矢印キー(&amp;A)</translation>
    </message>
    <message>
        <source>Tap</source>
        <translation>タップ</translation>
    </message>
    <message>
        <source>Double Tap</source>
        <translation>ダブルタップ</translation>
    </message>
    <message>
        <source>Hold</source>
        <translation>長押し</translation>
    </message>
    <message>
        <source>Gesture of a pedal</source>
        <translation>ペダルの操作</translation>
    </message>
    <message>
        <source>What the pedal or knob sends</source>
        <translation>ペダルやつまみが送る値</translation>
    </message>
    <message>
        <source>Positions (a pedal)</source>
        <translation>位置（ペダル）</translation>
    </message>
    <message>
        <source>Steps: 1 and 127</source>
        <translation>ステップ：1 と 127</translation>
    </message>
    <message>
        <source>Steps: 65 and 63</source>
        <translation>ステップ：65 と 63</translation>
    </message>
    <message>
        <source>Steps: 1 and 65</source>
        <translation>ステップ：1 と 65</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>%1 is no longer “%2”.</source>
        <translation>%1 は「%2」ではなくなりました。</translation>
    </message>
    <message>
        <source>Added: %1. Everything else stays as it was.</source>
        <translation>追加しました：%1。ほかはそのままです。</translation>
    </message>
    <message>
        <source>The assignments were made by a later version of Lyrabox. They cannot be changed here.</source>
        <translation>割り当ては Lyrabox の新しい版で作られました。ここでは変更できません。</translation>
    </message>
    <message>
        <source>The assignments could not be written. They hold until Lyrabox ends.</source>
        <translation>割り当てを保存できませんでした。Lyrabox の終了まで有効です。</translation>
    </message>
    <message>
        <source>The file of assignments could not be read. It is kept under another name when you change something.</source>
        <translation>割り当てのファイルを読めませんでした。変更すると、別の名前で残されます。</translation>
    </message>
    <message>
        <source>Some assignments in the file were not understood. The file is kept under another name when you change something.</source>
        <translation>ファイルの一部の割り当てを解釈できませんでした。変更すると、ファイルは別の名前で残されます。</translation>
    </message>
    <message>
        <source>Learn</source>
        <translation>学習</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Plugged in: %1</source>
        <translation>接続中：%1</translation>
    </message>
    <message>
        <source>No MIDI device is plugged in.</source>
        <translation>MIDI 機器は接続されていません。</translation>
    </message>
    <message>
        <source>MIDI devices are looked for while you learn, and while one is assigned.</source>
        <translation>MIDI 機器は、学習中と割り当てがある間に検出されます。</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeCommands</name>
    <message>
        <source>Zoom &amp;In</source>
        <translation>拡大(&amp;I)</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>縮小(&amp;O)</translation>
    </message>
    <message>
        <source>Zoom to &amp;Loop</source>
        <translation>ループに合わせる(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Whole Song</source>
        <translation>曲全体(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Follow</source>
        <translation>追従(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>再生(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Keep Loop</source>
        <translation>ループを保存(&amp;K)</translation>
    </message>
    <message>
        <source>Loop %1</source>
        <translation>ループ %1</translation>
    </message>
    <message>
        <source>Play Loop</source>
        <translation>ループを再生</translation>
    </message>
    <message>
        <source>&amp;Next Loop</source>
        <translation>次のループ(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Previous Loop</source>
        <translation>前のループ(&amp;P)</translation>
    </message>
    <message>
        <source>Play &amp;Selected</source>
        <translation>選択した項目を再生(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Marker</source>
        <translation>マーカー(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Add Marker</source>
        <translation>マーカーを追加(&amp;A)</translation>
    </message>
    <message>
        <source>Add Marker with &amp;Name…</source>
        <translation>名前付きでマーカーを追加(&amp;N)…</translation>
    </message>
    <message>
        <source>Ne&amp;xt Marker</source>
        <translation>次のマーカー(&amp;X)</translation>
    </message>
    <message>
        <source>&amp;Previous Marker</source>
        <translation>前のマーカー(&amp;P)</translation>
    </message>
    <message>
        <source>10 ms &amp;Earlier</source>
        <translation>10 ms 早く(&amp;E)</translation>
    </message>
    <message>
        <source>10 ms &amp;Later</source>
        <translation>10 ms 遅く(&amp;L)</translation>
    </message>
    <message>
        <source>1 ms E&amp;arlier</source>
        <translation>1 ms 早く(&amp;A)</translation>
    </message>
    <message>
        <source>1 ms La&amp;ter</source>
        <translation>1 ms 遅く(&amp;T)</translation>
    </message>
    <message>
        <source>Move &amp;Start</source>
        <translation>始点を移動(&amp;S)</translation>
    </message>
    <message>
        <source>Move &amp;Loop</source>
        <translation>ループを移動(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Tidy Loop</source>
        <translation>ループを整える(&amp;T)</translation>
    </message>
    <message>
        <source>Second &amp;Half</source>
        <translation>後半(&amp;H)</translation>
    </message>
    <message>
        <source>Twice as Lon&amp;g</source>
        <translation>2 倍の長さ(&amp;G)</translation>
    </message>
    <message>
        <source>Keep Speed and P&amp;itch with Loop</source>
        <translation>ループの速度とピッチを保存(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Forget Speed and Pitch of Loop</source>
        <translation>ループの速度とピッチを消去(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Rename…</source>
        <translation>名前を変更(&amp;R)…</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>削除(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>Red&amp;o</source>
        <translation>やり直す(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Wave</source>
        <translation>波形(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Beats</source>
        <translation>拍(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Tap Beat</source>
        <translation>拍をタップ(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Use Suggestion</source>
        <translation>候補を使う(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Half the Tempo</source>
        <translation>テンポを半分に(&amp;H)</translation>
    </message>
    <message>
        <source>T&amp;wice the Tempo</source>
        <translation>テンポを2倍に(&amp;W)</translation>
    </message>
    <message>
        <source>Three Hal&amp;ves of the Tempo</source>
        <translation>テンポを1.5倍に(&amp;V)</translation>
    </message>
    <message>
        <source>Bars One Beat &amp;Earlier</source>
        <translation>小節を1拍前へ(&amp;E)</translation>
    </message>
    <message>
        <source>Bars One Beat &amp;Later</source>
        <translation>小節を1拍後へ(&amp;L)</translation>
    </message>
    <message>
        <source>Beat at the Line 10 ms E&amp;arlier</source>
        <translation>線の拍を10 ms前へ(&amp;A)</translation>
    </message>
    <message>
        <source>Beat at the Line 10 ms Late&amp;r</source>
        <translation>線の拍を10 ms後へ(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Clear Beats</source>
        <translation>拍を消去(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Click and Count-in</source>
        <translation>クリックとカウントイン(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Click</source>
        <translation>クリック(&amp;C)</translation>
    </message>
    <message>
        <source>Count-&amp;in</source>
        <translation>カウントイン(&amp;I)</translation>
    </message>
    <message>
        <source>Click &amp;Settings…</source>
        <translation>クリックの設定(&amp;S)…</translation>
    </message>
    <message>
        <source>Count-in S&amp;ettings…</source>
        <translation>カウントインの設定(&amp;E)…</translation>
    </message>
    <message>
        <source>Histor&amp;y…</source>
        <translation>履歴(&amp;Y)…</translation>
    </message>
    <message>
        <source>One Beat or 100 ms Earl&amp;ier</source>
        <translation>1拍または100 ms前へ(&amp;I)</translation>
    </message>
    <message>
        <source>One Beat or 100 ms Late&amp;r</source>
        <translation>1拍または100 ms後へ(&amp;R)</translation>
    </message>
    <message>
        <source>%1 by 10 ms (with Alt 1 ms, with Shift a beat)</source>
        <translation>%1 10 ms（Altで1 ms、Shiftで1拍）</translation>
    </message>
    <message>
        <source>Tr&amp;ainer</source>
        <translation>トレーナー(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Train Loop</source>
        <translation>ループを練習(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Rotate Loops</source>
        <translation>ループを交代で練習(&amp;R)</translation>
    </message>
    <message>
        <source>Pass &amp;Missed</source>
        <translation>失敗した(&amp;M)</translation>
    </message>
    <message>
        <source>Pass R&amp;ight</source>
        <translation>成功した(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>書き出し(&amp;J)…</translation>
    </message>
    <message>
        <source>Mo&amp;ve End</source>
        <translation>終点を移動(&amp;E)</translation>
    </message>
    <message>
        <source>Sou&amp;nd</source>
        <translation>サウンド(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Centre</source>
        <translation>センター(&amp;C)</translation>
    </message>
    <message>
        <source>Hear the &amp;Original</source>
        <translation>原音を聴く(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Tune to My A</source>
        <translation>自分のAに合わせる(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Both Channels</source>
        <translation>両チャンネル(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Mono</source>
        <translation>モノラル(&amp;M)</translation>
    </message>
    <message>
        <source>Only the &amp;Left Channel</source>
        <translation>左チャンネルのみ(&amp;L)</translation>
    </message>
    <message>
        <source>Only the &amp;Right Channel</source>
        <translation>右チャンネルのみ(&amp;R)</translation>
    </message>
    <message>
        <source>Channels &amp;Swapped</source>
        <translation>左右入れ替え(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Normal Sound</source>
        <translation>通常の音(&amp;N)</translation>
    </message>
    <message>
        <source>Stand View (&amp;Q)</source>
        <translation>譜面台表示(&amp;Q)</translation>
    </message>
    <message>
        <source>E&amp;xchange</source>
        <translation>共有(&amp;X)</translation>
    </message>
    <message>
        <source>&amp;Share Practice…</source>
        <translation>練習を共有(&amp;S)…</translation>
    </message>
    <message>
        <source>Share as &amp;Label Track…</source>
        <translation>ラベルトラックとして共有(&amp;L)…</translation>
    </message>
    <message>
        <source>&amp;Open Practice…</source>
        <translation>練習を開く(&amp;O)…</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeExport</name>
    <message>
        <source>Export</source>
        <translation>書き出し</translation>
    </message>
    <message>
        <source>“%1” could not be exported.</source>
        <translation>「%1」を書き出せませんでした。</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeFooter</name>
    <message>
        <source>The loops of this song cannot be read. The next change keeps the old file under another name.</source>
        <translation>この曲のループを読み込めません。次の変更時に、古いファイルは別の名前で残されます。</translation>
    </message>
    <message>
        <source>Some loops or markers of this song cannot be read. The next change keeps the old file under another name.</source>
        <translation>この曲のループまたはマーカーの一部を読み込めません。次の変更時に、古いファイルは別の名前で残されます。</translation>
    </message>
    <message>
        <source>A later version of Lyrabox made these loops. They cannot be changed here.</source>
        <translation>これらのループは新しいバージョンの Lyrabox で作成されました。ここでは変更できません。</translation>
    </message>
    <message>
        <source>Loops and markers cannot be written to the disk. They are lost when Lyrabox ends.</source>
        <translation>ループとマーカーをディスクに書き込めません。Lyrabox を終了すると失われます。</translation>
    </message>
    <message>
        <source>Another program has changed the loops of this song, too. Its file was kept under another name.</source>
        <translation>別のプログラムもこの曲のループを変更しました。そのファイルは別の名前で残されています。</translation>
    </message>
    <message>
        <source>Recognising the song…</source>
        <translation>曲を識別しています…</translation>
    </message>
    <message>
        <source>The practice history cannot be written to the disk. What is added to it is lost when Lyrabox ends.</source>
        <translation>練習履歴をディスクに書き込めません。追加された内容は Lyrabox を終了すると失われます。</translation>
    </message>
    <message>
        <source>Some lines of the practice history cannot be read and are left out.</source>
        <translation>練習履歴に読み取れない行があり、省かれています。</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeLane</name>
    <message>
        <source>Loops and markers above the wave</source>
        <translation>波形の上のループとマーカー</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticePages</name>
    <message>
        <source>Page</source>
        <translation>ページ</translation>
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
        <translation>曲</translation>
    </message>
    <message>
        <source>Practice</source>
        <translation>練習</translation>
    </message>
    <message>
        <source>Shown part</source>
        <translation>表示する部分</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>ループ</translation>
    </message>
    <message>
        <source>Play a song to see its wave.</source>
        <translation>曲を再生すると波形が表示されます。</translation>
    </message>
    <message>
        <source>Drag across the wave to make a loop.</source>
        <translation>波形の上をドラッグするとループになります。</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1、%2</translation>
    </message>
    <message>
        <source>Press K to keep this loop.</source>
        <translation>K でこのループを保存します。</translation>
    </message>
    <message>
        <source>Loops</source>
        <translation>ループ</translation>
    </message>
    <message>
        <source>Trainer</source>
        <translation>トレーナー</translation>
    </message>
    <message>
        <source>Missed</source>
        <translation>失敗</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>成功</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>交代</translation>
    </message>
    <message>
        <source>Beat</source>
        <translation>拍</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>サウンド</translation>
    </message>
</context>
<context>
    <name>lyrabox::PracticeSharing</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Use Them</source>
        <translation>使う</translation>
    </message>
    <message>
        <source>Not This Song</source>
        <translation>この曲ではない</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 秒</translation>
    </message>
    <message>
        <source>1 loop</source>
        <translation>ループ 1 個</translation>
    </message>
    <message>
        <source>%1 loops</source>
        <translation>ループ %1 個</translation>
    </message>
    <message>
        <source>1 marker</source>
        <translation>マーカー 1 個</translation>
    </message>
    <message>
        <source>%1 markers</source>
        <translation>マーカー %1 個</translation>
    </message>
    <message>
        <source>the beats</source>
        <translation>拍</translation>
    </message>
    <message>
        <source>Nothing was added.</source>
        <translation>何も追加されませんでした。</translation>
    </message>
    <message>
        <source>Added: %1.</source>
        <translation>追加: %1。</translation>
    </message>
    <message>
        <source>Here already: %1.</source>
        <translation>すでにあるもの: %1。</translation>
    </message>
    <message>
        <source>No room for %1 more.</source>
        <translation>さらに %1 個の空きはありません。</translation>
    </message>
    <message>
        <source>These loops were made for another copy of this song.</source>
        <translation>これらのループはこの曲の別のコピー用に作られました。</translation>
    </message>
    <message>
        <source>Moved by %1.</source>
        <translation>%1 移動。</translation>
    </message>
    <message>
        <source>Some entries of the file were left out.</source>
        <translation>ファイルの一部の項目は省かれました。</translation>
    </message>
    <message>
        <source>For “%1”: %2</source>
        <translation>「%1」: %2</translation>
    </message>
    <message>
        <source>Use these loops for “%1”?</source>
        <translation>これらのループを「%1」に使いますか？</translation>
    </message>
    <message>
        <source>These loops are for “%1”. Use them for “%2”?</source>
        <translation>これらのループは「%1」用です。「%2」に使いますか？</translation>
    </message>
    <message>
        <source>“%1” cannot be read.</source>
        <translation>「%1」を読めません。</translation>
    </message>
    <message>
        <source>“%1” is too large for a practice file.</source>
        <translation>「%1」は練習ファイルとして大きすぎます。</translation>
    </message>
    <message>
        <source>“%1” was made by a later version of Lyrabox.</source>
        <translation>「%1」は新しいバージョンの Lyrabox で作られました。</translation>
    </message>
    <message>
        <source>“%1” is neither a practice file nor a label track.</source>
        <translation>「%1」は練習ファイルでもラベルトラックでもありません。</translation>
    </message>
    <message>
        <source>“%1” has no loops and no markers.</source>
        <translation>「%1」にはループもマーカーもありません。</translation>
    </message>
    <message>
        <source>Play the song that “%1” is for, and open the file again.</source>
        <translation>「%1」の対象の曲を再生してから、もう一度ファイルを開いてください。</translation>
    </message>
    <message>
        <source>The loops of this song cannot be changed, or there is no room for so many.</source>
        <translation>この曲のループは変更できないか、数が多すぎます。</translation>
    </message>
    <message>
        <source>“%1” cannot be written.</source>
        <translation>「%1」に書き込めません。</translation>
    </message>
    <message>
        <source>“%1” was written.</source>
        <translation>「%1」に書き込みました。</translation>
    </message>
    <message>
        <source>Share as Label Track</source>
        <translation>ラベルトラックとして共有</translation>
    </message>
    <message>
        <source>Share Practice</source>
        <translation>練習を共有</translation>
    </message>
    <message>
        <source>Label tracks (*.txt)</source>
        <translation>ラベルトラック (*.txt)</translation>
    </message>
    <message>
        <source>Practice files (*.json)</source>
        <translation>練習ファイル (*.json)</translation>
    </message>
    <message>
        <source>Open Practice</source>
        <translation>練習を開く</translation>
    </message>
    <message>
        <source>Practice files and label tracks (*.json *.txt)</source>
        <translation>練習ファイルとラベルトラック (*.json *.txt)</translation>
    </message>
</context>
<context>
    <name>lyrabox::ProgressPanel</name>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
</context>
<context>
    <name>lyrabox::RotationBox</name>
    <message>
        <source>Unit of a turn</source>
        <translation>1ターンの単位</translation>
    </message>
    <message>
        <source>passes</source>
        <translation>回</translation>
    </message>
    <message>
        <source>minutes</source>
        <translation>分</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>交代練習</translation>
    </message>
    <message>
        <source>Loops take turns, in shuffled order. Without a tick, all do.</source>
        <translation>ループをランダムな順に交代します。選択がなければ全部です。</translation>
    </message>
    <message>
        <source>Each for</source>
        <translation>1つにつき</translation>
    </message>
    <message>
        <source>Length of a turn</source>
        <translation>1ターンの長さ</translation>
    </message>
    <message>
        <source>Loop %1</source>
        <translation>ループ %1</translation>
    </message>
</context>
<context>
    <name>lyrabox::SUUpdater</name>
    <message>
        <source>Lyrabox is up to date.</source>
        <translation>Lyrabox は最新です。</translation>
    </message>
    <message>
        <source>Version %1 is the newest there is.</source>
        <translation>バージョン %1 が最新です。</translation>
    </message>
    <message>
        <source>This version was built without an address to ask.</source>
        <translation>このバージョンには問い合わせ先が設定されていません。</translation>
    </message>
    <message>
        <source>The address for updates leads to a connection that is not secure.</source>
        <translation>アップデートの問い合わせ先は安全でない接続です。</translation>
    </message>
    <message>
        <source>The answer was too large.</source>
        <translation>応答が大きすぎます。</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>サーバが時間内に応答しませんでした。</translation>
    </message>
    <message>
        <source>The answer could not be understood.</source>
        <translation>応答を理解できませんでした。</translation>
    </message>
    <message>
        <source>Lyrabox could not check for updates.</source>
        <translation>Lyrabox はアップデートを確認できませんでした。</translation>
    </message>
</context>
<context>
    <name>lyrabox::SearchField</name>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>Cancel search</source>
        <translation>検索を取り消す</translation>
    </message>
</context>
<context>
    <name>lyrabox::SnapButton</name>
    <message>
        <source>Beat</source>
        <translation>拍</translation>
    </message>
    <message>
        <source>Attack</source>
        <translation>アタック</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>What the ends of loops, and markers, snap to when they are dragged. With Shift they don&apos;t.</source>
        <translation>ループの端とマーカーをドラッグしたときに吸着する位置。Shiftを押すと吸着しません。</translation>
    </message>
    <message>
        <source>Snap: %1</source>
        <translation>吸着: %1</translation>
    </message>
</context>
<context>
    <name>lyrabox::SoundPage</name>
    <message>
        <source>Original</source>
        <translation>原音</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>通常</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>両方</translation>
    </message>
    <message>
        <source>Mono</source>
        <translation>モノ</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右</translation>
    </message>
    <message>
        <source>Swap</source>
        <translation>入替</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>チャンネル</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>バランス</translation>
    </message>
    <message>
        <source>Balance, -100 is left, 100 is right</source>
        <translation>バランス、-100は左、100は右</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>センター</translation>
    </message>
    <message>
        <source>Centre, -100 is without the middle, 100 is only the middle</source>
        <translation>センター、-100は中央なし、100は中央のみ</translation>
    </message>
    <message>
        <source>Limits of the middle</source>
        <translation>中央の範囲</translation>
    </message>
    <message>
        <source>The frequency of my A in Hz</source>
        <translation>自分のAの周波数（Hz）</translation>
    </message>
    <message>
        <source>My instrument</source>
        <translation>自分の楽器</translation>
    </message>
    <message>
        <source>Tune to A =</source>
        <translation>合わせる A =</translation>
    </message>
    <message>
        <source>This song is mono: it has nothing but a middle.</source>
        <translation>この曲はモノラルで、中央しかありません。</translation>
    </message>
    <message>
        <source>Works on what was mixed into the middle.</source>
        <translation>中央にミックスされた音に作用します。</translation>
    </message>
    <message>
        <source>Listening to the song …</source>
        <translation>曲を聴いています…</translation>
    </message>
    <message>
        <source>Tuning: not clear</source>
        <translation>チューニング：不明瞭</translation>
    </message>
    <message>
        <source>Key: not clear</source>
        <translation>キー：不明瞭</translation>
    </message>
</context>
<context>
    <name>lyrabox::SoundWords</name>
    <message>
        <source>Drifts: %1 to %2 cents flat (A = %3 to %4)</source>
        <translation>変動：%1～%2セント低い（A = %3～%4）</translation>
    </message>
    <message>
        <source>Drifts: %1 to %2 cents sharp (A = %3 to %4)</source>
        <translation>変動：%1～%2セント高い（A = %3～%4）</translation>
    </message>
    <message>
        <source>Drifts: %1 cents flat to %2 cents sharp (A = %3 to %4)</source>
        <translation>変動：%1セント低い～%2セント高い（A = %3～%4）</translation>
    </message>
    <message>
        <source>In tune (A = %1)</source>
        <translation>合っています（A = %1）</translation>
    </message>
    <message>
        <source>1 cent flat (A = %1)</source>
        <translation>1セント低い（A = %1）</translation>
    </message>
    <message>
        <source>1 cent sharp (A = %1)</source>
        <translation>1セント高い（A = %1）</translation>
    </message>
    <message>
        <source>%1 cents flat (A = %2)</source>
        <translation>%1セント低い（A = %2）</translation>
    </message>
    <message>
        <source>%1 cents sharp (A = %2)</source>
        <translation>%1セント高い（A = %2）</translation>
    </message>
    <message>
        <source>%1 minor</source>
        <translation>%1マイナー</translation>
    </message>
    <message>
        <source>%1 major</source>
        <translation>%1メジャー</translation>
    </message>
    <message>
        <source>%1 (or %2)</source>
        <translation>%1（または%2）</translation>
    </message>
    <message>
        <source>Capo %1</source>
        <translation>カポ%1</translation>
    </message>
    <message>
        <source>in %1</source>
        <translation>%1管</translation>
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
        <translation>%2 の %1 から %4 の %3 まで、最高は %5</translation>
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
        <translation>仕切り</translation>
    </message>
</context>
<context>
    <name>lyrabox::StandText</name>
    <message>
        <source>Count-in: 1 beat</source>
        <translation>カウントイン: 1拍</translation>
    </message>
    <message>
        <source>Count-in: %1 beats</source>
        <translation>カウントイン: %1拍</translation>
    </message>
    <message>
        <source>Count-in: 1 bar</source>
        <translation>カウントイン: 1小節</translation>
    </message>
    <message>
        <source>Count-in: %1 bars</source>
        <translation>カウントイン: %1小節</translation>
    </message>
    <message>
        <source>Bar</source>
        <translation>小節</translation>
    </message>
    <message>
        <source>Count-in</source>
        <translation>カウントイン</translation>
    </message>
    <message>
        <source>Rest</source>
        <translation>休み</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Play a song.</source>
        <translation>曲を再生してください。</translation>
    </message>
</context>
<context>
    <name>lyrabox::StandView</name>
    <message>
        <source>Stand View</source>
        <translation>譜面台表示</translation>
    </message>
    <message>
        <source>Escape or F11: back to Lyrabox</source>
        <translation>Esc または F11: Lyrabox に戻る</translation>
    </message>
</context>
<context>
    <name>lyrabox::TempoReadout</name>
    <message>
        <source>Type a tempo</source>
        <translation>テンポを入力</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>テンポ</translation>
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
        <translation>タップ %1／%2</translation>
    </message>
    <message>
        <source>at %1 % · song %2 · %3/4</source>
        <translation>%1 %・曲 %2・%3/4</translation>
    </message>
    <message>
        <source>Tempo: %1, %2</source>
        <translation>テンポ: %1、%2</translation>
    </message>
    <message>
        <source>about %1 BPM</source>
        <translation>約%1 BPM</translation>
    </message>
    <message>
        <source>at %1 % of %2</source>
        <translation>%2の%1 %</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrackTableModel</name>
    <message>
        <source>Title</source>
        <translation>タイトル</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>アーティスト</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>アルバム</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>時間</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>再生中</translation>
    </message>
    <message>
        <source>Has settings</source>
        <translation>設定あり</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrainerLadder</name>
    <message>
        <source>%1, present speed</source>
        <translation>%1、現在の速度</translation>
    </message>
    <message>
        <source>%1, played</source>
        <translation>%1、演奏済み</translation>
    </message>
    <message>
        <source>Go on at %1</source>
        <translation>%1で続ける</translation>
    </message>
    <message>
        <source>Ladder</source>
        <translation>速度の段階</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrainerPage</name>
    <message>
        <source>First speed</source>
        <translation>最初の速度</translation>
    </message>
    <message>
        <source>to</source>
        <translation>～</translation>
    </message>
    <message>
        <source>Last speed</source>
        <translation>最後の速度</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>単位</translation>
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
        <translation>速度</translation>
    </message>
    <message>
        <source>Size of a step</source>
        <translation>1段の大きさ</translation>
    </message>
    <message>
        <source>Way through the speeds</source>
        <translation>速度の進め方</translation>
    </message>
    <message>
        <source>One speed</source>
        <translation>一定の速度</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上げる</translation>
    </message>
    <message>
        <source>Two up, one down</source>
        <translation>2段上げて1段下げる</translation>
    </message>
    <message>
        <source>Up and back</source>
        <translation>上げて戻る</translation>
    </message>
    <message>
        <source>Steps</source>
        <translation>段階</translation>
    </message>
    <message>
        <source>Passes at each speed</source>
        <translation>速度ごとの回数</translation>
    </message>
    <message>
        <source>How passes add up</source>
        <translation>回数の数え方</translation>
    </message>
    <message>
        <source>in a row</source>
        <translation>連続</translation>
    </message>
    <message>
        <source>in all</source>
        <translation>合計</translation>
    </message>
    <message>
        <source>Passes</source>
        <translation>回数</translation>
    </message>
    <message>
        <source>On a miss</source>
        <translation>失敗時</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>そのまま</translation>
    </message>
    <message>
        <source>One step down</source>
        <translation>1段下げる</translation>
    </message>
    <message>
        <source>Two steps down</source>
        <translation>2段下げる</translation>
    </message>
    <message>
        <source>To the first speed</source>
        <translation>最初の速度へ</translation>
    </message>
    <message>
        <source>At the top</source>
        <translation>到達時</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>続ける</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Next loop</source>
        <translation>次のループ</translation>
    </message>
    <message>
        <source>From the start</source>
        <translation>最初から</translation>
    </message>
    <message>
        <source>10 % more</source>
        <translation>さらに10 %</translation>
    </message>
    <message>
        <source>What counts</source>
        <translation>数える対象</translation>
    </message>
    <message>
        <source>All but the missed</source>
        <translation>失敗以外すべて</translation>
    </message>
    <message>
        <source>Only the right ones</source>
        <translation>成功のみ</translation>
    </message>
    <message>
        <source>Counts</source>
        <translation>対象</translation>
    </message>
    <message>
        <source>Before a pass</source>
        <translation>各回の前</translation>
    </message>
    <message>
        <source>Nothing</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Count-in</source>
        <translation>カウントイン</translation>
    </message>
    <message>
        <source>Run-up</source>
        <translation>助走</translation>
    </message>
    <message>
        <source>Rest</source>
        <translation>休み</translation>
    </message>
    <message>
        <source>Beats before a pass</source>
        <translation>各回の前の拍数</translation>
    </message>
    <message>
        <source>beats</source>
        <translation>拍</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>前に</translation>
    </message>
    <message>
        <source>When to count in</source>
        <translation>カウントインの時機</translation>
    </message>
    <message>
        <source>At the start</source>
        <translation>開始時</translation>
    </message>
    <message>
        <source>At a new speed</source>
        <translation>速度が変わるとき</translation>
    </message>
    <message>
        <source>Before every pass</source>
        <translation>毎回</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>しない</translation>
    </message>
    <message>
        <source>This ladder needs the song&apos;s beats.</source>
        <translation>この段階には曲の拍が必要です。</translation>
    </message>
    <message>
        <source>Make a loop to train it.</source>
        <translation>練習するループを作成してください。</translation>
    </message>
</context>
<context>
    <name>lyrabox::TrainerWords</name>
    <message>
        <source>this pass is missed</source>
        <translation>この回は失敗</translation>
    </message>
    <message>
        <source>this pass is right</source>
        <translation>この回は成功</translation>
    </message>
    <message>
        <source>slower</source>
        <translation>速度を下げました</translation>
    </message>
    <message>
        <source>missed</source>
        <translation>失敗</translation>
    </message>
    <message>
        <source>at the top</source>
        <translation>最高速度</translation>
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
        <translation>%1回目（全%2回）</translation>
    </message>
    <message>
        <source>next %1</source>
        <translation>次は%1</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
</context>
<context>
    <name>lyrabox::WaveView</name>
    <message>
        <source>%1, loop from %2 to %3</source>
        <translation>%1、ループ %2 から %3</translation>
    </message>
    <message>
        <source>Wave</source>
        <translation>波形</translation>
    </message>
    <message>
        <source>%1, bar %2</source>
        <translation>%1、%2小節</translation>
    </message>
    <message>
        <source>tap here, too</source>
        <translation>ここもタップ</translation>
    </message>
</context>
<context>
    <name>lyrabox::WeekBars</name>
    <message>
        <source>%1 min</source>
        <translation>%1 分</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1 時間</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 時間 %2 分</translation>
    </message>
    <message>
        <source>%1 in the week of %2</source>
        <translation>%2 の週に %1</translation>
    </message>
    <message>
        <source>Week of %1: %2</source>
        <translation>%1 の週: %2</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Lyrabox is running already but does not answer.</source>
        <translation>Lyrabox はすでに起動していますが、応答しません。</translation>
    </message>
</context>
</TS>
