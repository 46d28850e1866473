<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>AdvancedSettingsPanel</name>
    <message>
        <source>Advanced settings</source>
        <translation>Réglages avancés</translation>
    </message>
    <message>
        <source>Beats go on at the last tempo while the music is stopped.</source>
        <translation>Les beats continuent au dernier tempo pendant que la musique est arrêtée.</translation>
    </message>
    <message>
        <source>The window says so as soon as the music stops.</source>
        <translation>La fenêtre l’indique dès que la musique s’arrête.</translation>
    </message>
    <message>
        <source>Show the &amp;speakers</source>
        <translation>Aff&amp;icher les enceintes</translation>
    </message>
    <message>
        <source>Two speakers pump with the beat.</source>
        <translation>Deux enceintes pulsent en rythme.</translation>
    </message>
    <message>
        <source>A quiet, dark look for dark places.</source>
        <translation>Un aspect sobre et sombre pour les lieux obscurs.</translation>
    </message>
    <message>
        <source>The window stays above all others.</source>
        <translation>La fenêtre reste au-dessus de toutes les autres.</translation>
    </message>
    <message>
        <source>Language of the system</source>
        <translation>Langue du système</translation>
    </message>
    <message>
        <source>Go o&amp;n with virtual beats while stopped</source>
        <translation>Co&amp;ntinuer les beats virtuels à l’arrêt</translation>
    </message>
    <message>
        <source>Show when the music is sto&amp;pped</source>
        <translation>Signaler l’arrêt de la musi&amp;que</translation>
    </message>
    <message>
        <source>Gra&amp;y mode</source>
        <translation>Mode &amp;gris</translation>
    </message>
    <message>
        <source>Always on &amp;top</source>
        <translation>Toujours au &amp;premier plan</translation>
    </message>
    <message>
        <source>Lan&amp;guage:</source>
        <translation>&amp;Langue&#xa0;:</translation>
    </message>
</context>
<context>
    <name>AudioFileReader</name>
    <message>
        <source>there is no such file; check its name and folder</source>
        <translation>ce fichier n’existe pas&#xa0;; vérifiez son nom et son dossier</translation>
    </message>
    <message>
        <source>cannot be opened: %1</source>
        <translation>ne s’ouvre pas&#xa0;: %1</translation>
    </message>
    <message>
        <source>is a folder; name the audio files in it</source>
        <translation>est un dossier&#xa0;; indiquez les fichiers audio qu’il contient</translation>
    </message>
    <message>
        <source>the file is empty; get a whole copy of it</source>
        <translation>le fichier est vide&#xa0;; procurez-vous une copie complète</translation>
    </message>
    <message>
        <source>may not be read; check its permissions</source>
        <translation>n’est pas lisible&#xa0;; vérifiez ses droits d’accès</translation>
    </message>
    <message>
        <source>is not audio, or is damaged at its start; WAV, FLAC, Ogg Vorbis, Opus, MP3 and AIFF files are read</source>
        <translation>n’est pas de l’audio ou est endommagé au début&#xa0;; les fichiers WAV, FLAC, Ogg Vorbis, Opus, MP3 et AIFF sont lus</translation>
    </message>
    <message>
        <source>is no audio stream that can be read; for raw 16-bit samples add --raw RATE, else save it to a file first</source>
        <translation>n’est pas un flux audio lisible&#xa0;; pour des échantillons bruts de 16 bits, ajoutez --raw RATE, sinon enregistrez-le d’abord dans un fichier</translation>
    </message>
    <message>
        <source>has a sample rate of %1 Hz; convert it to one from %2 to %3 Hz</source>
        <translation>a une fréquence d’échantillonnage de %1 Hz&#xa0;; convertissez-le entre %2 et %3 Hz</translation>
    </message>
    <message>
        <source>cannot be kept in %1 for its decoder: %2; save it to a file first</source>
        <translation>ne peut pas être gardé dans %1 pour son décodeur&#xa0;: %2&#xa0;; enregistrez-le d’abord dans un fichier</translation>
    </message>
    <message>
        <source>its header counts no samples, though %1 bytes follow it: the recording was not closed</source>
        <translation>son en-tête ne compte aucun échantillon, alors que %1 octets le suivent&#xa0;: l’enregistrement n’a pas été clos</translation>
    </message>
    <message>
        <source>is a file of the kind %1, which is not read; convert it to WAV, FLAC, Ogg Vorbis, Opus, MP3 or AIFF: ffmpeg -i FILE song.flac</source>
        <translation>est un fichier du type %1, qui n’est pas lu&#xa0;; convertissez-le en WAV, FLAC, Ogg Vorbis, Opus, MP3 ou AIFF&#xa0;: ffmpeg -i FICHIER song.flac</translation>
    </message>
    <message>
        <source>truncated: its end is missing</source>
        <translation>tronqué&#xa0;: la fin manque</translation>
    </message>
    <message>
        <source>truncated: %1 of %2 bytes are there</source>
        <translation>tronqué&#xa0;: %1 octets sur %2 sont là</translation>
    </message>
    <message>
        <source>damaged or truncated: only %1 s of %2 s can be read</source>
        <translation>endommagé ou tronqué&#xa0;: seulement %1 s sur %2 s sont lisibles</translation>
    </message>
    <message>
        <source>damaged: %1</source>
        <translation>endommagé&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1; get a whole copy of it</source>
        <translation>%1&#xa0;; procurez-vous une copie complète</translation>
    </message>
</context>
<context>
    <name>BoothActions</name>
    <message>
        <source>&amp;Profile</source>
        <translation>Profi&amp;l</translation>
    </message>
</context>
<context>
    <name>BoothKeys</name>
    <message>
        <source>&amp;Tap the tempo</source>
        <translation>&amp;Taper le tempo</translation>
    </message>
    <message>
        <source>This beat is the &amp;one</source>
        <translation>Ce beat est le &amp;un</translation>
    </message>
    <message>
        <source>Round the tempo to &amp;whole BPM</source>
        <translation>A&amp;rrondir le tempo au BPM entier</translation>
    </message>
    <message>
        <source>&amp;Hold the tempo, or release it</source>
        <translation>&amp;Garder le tempo, ou le relâcher</translation>
    </message>
    <message>
        <source>Beats 10 ms &amp;earlier</source>
        <translation>Beats 10 &amp;ms plus tôt</translation>
    </message>
    <message>
        <source>Beats 10 ms &amp;later</source>
        <translation>Beats 10 ms plus tar&amp;d</translation>
    </message>
    <message>
        <source>&amp;Double the tempo</source>
        <translation>D&amp;oubler le tempo</translation>
    </message>
    <message>
        <source>Hal&amp;f the tempo</source>
        <translation>Diviser le tempo &amp;par deux</translation>
    </message>
    <message>
        <source>&amp;Search anew</source>
        <translation>&amp;Chercher à nouveau</translation>
    </message>
    <message>
        <source>&amp;Automatic tracking</source>
        <translation>Suivi &amp;automatique</translation>
    </message>
    <message>
        <source>The profile of that place in the &amp;list</source>
        <translation>Le profil de cette place dans la &amp;liste</translation>
    </message>
    <message>
        <source>Stage &amp;view, on the next screen, and back</source>
        <translation>&amp;Vue de scène, sur l’écran suivant, et retour</translation>
    </message>
    <message>
        <source>Show the &amp;keys</source>
        <translation>Montrer les &amp;touches</translation>
    </message>
    <message>
        <source>O&amp;utputs on or off</source>
        <translation>&amp;Sorties en marche ou non</translation>
    </message>
    <message>
        <source>&amp;Mute the file that is played, or not</source>
        <translation>&amp;Muet ou non, le fichier lu</translation>
    </message>
    <message>
        <source>Pause the last two minutes, or &amp;go on</source>
        <translation>Fi&amp;ger les deux dernières minutes, ou reprendre</translation>
    </message>
    <message>
        <source>Sho&amp;w less time of them</source>
        <translation>En montrer moins de temps (&amp;x)</translation>
    </message>
    <message>
        <source>Show mo&amp;re time of them</source>
        <translation>En mo&amp;ntrer plus de temps</translation>
    </message>
</context>
<context>
    <name>BpmPanel</name>
    <message>
        <source>BPM</source>
        <comment>beats per minute</comment>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Tempo in beats per minute</source>
        <translation>Tempo en battements par minute</translation>
    </message>
    <message>
        <source>Waiting for sound.</source>
        <translation>En attente de son.</translation>
    </message>
    <message>
        <source>Stopped; this was the tempo.</source>
        <translation>À l’arrêt&#xa0;; c’était le tempo.</translation>
    </message>
    <message>
        <source>Stopped: no music.</source>
        <translation>À l’arrêt&#xa0;: pas de musique.</translation>
    </message>
    <message>
        <source>Held: not measured now.</source>
        <translation>Maintenu&#xa0;: pas de mesure en ce moment.</translation>
    </message>
    <message>
        <source>Measured %1 BPM, out of the range of “%2”</source>
        <translation>Mesuré&#xa0;: %1 BPM, hors de la plage de «&#xa0;%2&#xa0;»</translation>
    </message>
    <message>
        <source>%1; half of it: %2.</source>
        <translation>%1&#xa0;; la moitié&#xa0;: %2.</translation>
    </message>
    <message>
        <source>%1; the double: %2.</source>
        <translation>%1&#xa0;; le double&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>Mesure en cours…</translation>
    </message>
    <message>
        <source>Confidence</source>
        <translation>Confiance</translation>
    </message>
    <message>
        <source>How sure it is that the next beat falls with the music&apos;s.</source>
        <translation>À quel point il est sûr que le prochain temps tombe avec celui de la musique.</translation>
    </message>
    <message>
        <source>Bar</source>
        <translation>Mesure</translation>
    </message>
    <message>
        <source>Beat in the bar</source>
        <translation>Temps de la mesure</translation>
    </message>
    <message>
        <source>The place of the beat in its bar.</source>
        <translation>La place du temps dans sa mesure.</translation>
    </message>
    <message>
        <source>Held by hand.</source>
        <translation>Tenu à la main.</translation>
    </message>
    <message>
        <source>Led by hand.</source>
        <translation>Mené à la main.</translation>
    </message>
</context>
<context>
    <name>ConfigurationStore</name>
    <message>
        <source>%1 cannot be read or is damaged; to begin anew: audio-analyzer config reset</source>
        <translation>%1 est illisible ou endommagé&#xa0;; pour repartir de zéro&#xa0;: audio-analyzer config reset</translation>
    </message>
    <message>
        <source>%1 cannot be written; the folder %2 must be writable, and the name free for a file</source>
        <translation>%1 ne peut pas être écrit&#xa0;; le dossier %2 doit être accessible en écriture et le nom libre pour un fichier</translation>
    </message>
    <message>
        <source>%1 is not a file; move it away</source>
        <translation>%1 n’est pas un fichier ; déplacez-le</translation>
    </message>
    <message>
        <source>%1 %2 instead of %3</source>
        <comment>setting, value taken, value in the file</comment>
        <translation>%1 %2 au lieu de %3</translation>
    </message>
    <message>
        <source>%1 of the profile &quot;%2&quot;</source>
        <translation>%1 du profil « %2 »</translation>
    </message>
    <message>
        <source>%1 holds values beyond their limits; taken: %2</source>
        <translation>%1 contient des valeurs hors de leurs limites ; retenu : %2</translation>
    </message>
    <message>
        <source>%1 is being changed by another program, which does not finish; end that program and try again</source>
        <translation>%1 est en cours de modification par un autre programme, qui n’aboutit pas ; fermez-le et réessayez</translation>
    </message>
    <message>
        <source>%1 cannot be written; remove %2</source>
        <translation>%1 ne peut pas être écrit ; supprimez %2</translation>
    </message>
</context>
<context>
    <name>DurationsPanel</name>
    <message>
        <source>Durations</source>
        <translation>Durées</translation>
    </message>
    <message>
        <source>&amp;Quiet up to:</source>
        <translation>Silence &amp;jusqu’à&#xa0;:</translation>
    </message>
    <message>
        <source>Restore &amp;defaults</source>
        <translation>Valeurs par &amp;défaut</translation>
    </message>
    <message>
        <source> s</source>
        <comment>seconds</comment>
        <translation> s</translation>
    </message>
    <message>
        <source>%1 to %2 s</source>
        <translation>%1 à %2 s</translation>
    </message>
    <message>
        <source>silence; 0 to %1</source>
        <translation>silence&#xa0;; 0 à %1</translation>
    </message>
    <message>
        <source>&amp;Average volume over:</source>
        <translation>Volume &amp;moyen sur&#xa0;:</translation>
    </message>
    <message>
        <source>The automatic threshold follows the volume of this span.</source>
        <translation>Le seuil automatique suit le volume de cette durée.</translation>
    </message>
    <message>
        <source>&amp;Tempo measured over:</source>
        <translation>&amp;Tempo mesuré sur&#xa0;:</translation>
    </message>
    <message>
        <source>The beats of this span make the tempo: a long one is steady, a short one follows quickly.</source>
        <translation>Les beats de cette durée donnent le tempo&#xa0;: longue, il est stable&#xa0;; courte, il réagit vite.</translation>
    </message>
    <message>
        <source>&amp;Stopped after:</source>
        <translation>&amp;Arrêt après&#xa0;:</translation>
    </message>
    <message>
        <source>When it has been quiet for so long, the music has stopped.</source>
        <translation>Après un tel silence, la musique est considérée comme arrêtée.</translation>
    </message>
    <message>
        <source>Sound up to this level counts as quiet.</source>
        <translation>Jusqu’à ce niveau, le son compte comme du silence.</translation>
    </message>
    <message>
        <source>All durations and levels as they were at first.</source>
        <translation>Toutes les durées et tous les niveaux d’origine.</translation>
    </message>
    <message>
        <source>%1 dBFS; 0 to %2</source>
        <translation>%1 dBFS&#xa0;; 0 à %2</translation>
    </message>
</context>
<context>
    <name>InputDevicesModel</name>
    <message>
        <source>%1: records what this computer plays</source>
        <translation>%1&#xa0;: enregistre ce que joue cet ordinateur</translation>
    </message>
    <message>
        <source>absent</source>
        <translation>absente</translation>
    </message>
    <message>
        <source>default</source>
        <translation>par défaut</translation>
    </message>
    <message>
        <source>monitor</source>
        <translation>moniteur</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>device (its marks)</comment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>The system&apos;s default, whichever it is</source>
        <translation>Celle par défaut du système, quelle qu&apos;elle soit</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>description, name</comment>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>InputDevicesPanel</name>
    <message>
        <source>Audio inputs</source>
        <translation>Entrées audio</translation>
    </message>
    <message>
        <source>Looks for inputs now. Where that takes long, it is not done by itself while sound is recorded.</source>
        <translation>Cherche les entrées maintenant. Quand c’est long, cela ne se fait pas tout seul pendant l’enregistrement.</translation>
    </message>
    <message>
        <source>The chosen input is absent; it is resumed when it returns</source>
        <translation>L’entrée choisie est absente&#xa0;; l’écoute reprend dès son retour</translation>
    </message>
    <message>
        <source>No input found; connect one</source>
        <translation>Aucune entrée trouvée&#xa0;; branchez-en une</translation>
    </message>
    <message>
        <source>Choose an input</source>
        <translation>Choisissez une entrée</translation>
    </message>
    <message numerus="yes">
        <source>%n input(s)</source>
        <translation>
            <numerusform>%n entrée</numerusform>
            <numerusform>%n entrées</numerusform>
        </translation>
    </message>
    <message>
        <source>L&amp;ook again</source>
        <translation>&amp;Chercher à nouveau</translation>
    </message>
    <message>
        <source>No sound server answered at the start: these are the inputs that Qt finds by itself.</source>
        <translation>Au démarrage, aucun serveur de son n&apos;a répondu : voici les entrées que Qt trouve lui-même.</translation>
    </message>
</context>
<context>
    <name>KeysPage</name>
    <message>
        <source>The keys</source>
        <translation>Les touches</translation>
    </message>
</context>
<context>
    <name>LedPanel</name>
    <message>
        <source>Beat</source>
        <translation>Beat</translation>
    </message>
    <message>
        <source>Pulse</source>
        <translation>Impulsion</translation>
    </message>
    <message>
        <source>Beat lamp</source>
        <translation>Voyant de beat</translation>
    </message>
    <message>
        <source>Pulse lamp</source>
        <translation>Voyant d’impulsion</translation>
    </message>
    <message>
        <source>Flashes when a beat falls due. A ring only: the beat was not heard but predicted.</source>
        <translation>S’allume à chaque beat attendu. Un simple anneau&#xa0;: le beat n’a pas été entendu mais prévu.</translation>
    </message>
    <message>
        <source>Flashes when a pulse is heard. A ring only: a beat was missing and is assumed.</source>
        <translation>S’allume quand une impulsion est entendue. Un simple anneau&#xa0;: un beat manquait et il est supposé.</translation>
    </message>
    <message>
        <source>virtual</source>
        <translation>virtuel</translation>
    </message>
    <message>
        <source>real</source>
        <translation>réel</translation>
    </message>
</context>
<context>
    <name>LevelPanel</name>
    <message>
        <source>&amp;Automatic threshold</source>
        <translation>Seuil a&amp;utomatique</translation>
    </message>
    <message>
        <source>The threshold follows the average volume and the sensibility of the profile.</source>
        <translation>Le seuil suit le volume moyen et la sensibilité du profil.</translation>
    </message>
    <message>
        <source>Threshold in dB below full scale</source>
        <translation>Seuil en dB sous la pleine échelle</translation>
    </message>
    <message>
        <source>A block is a pulse when a quarter of its samples reach the threshold.</source>
        <translation>Un bloc est une impulsion quand un quart de ses échantillons atteint le seuil.</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Actuel</translation>
    </message>
    <message>
        <source>Average</source>
        <translation>Moyenne</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation>Seuil</translation>
    </message>
    <message>
        <source>dBFS</source>
        <translation>dBFS</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>Level of the input</source>
        <translation>Niveau de l’entrée</translation>
    </message>
    <message>
        <source>The loudest samples as they come from the input.</source>
        <translation>Les échantillons les plus forts tels qu’ils viennent de l’entrée.</translation>
    </message>
    <message>
        <source>Band</source>
        <translation>Bande</translation>
    </message>
    <message>
        <source>Volume of the band</source>
        <translation>Volume de la bande</translation>
    </message>
    <message>
        <source>What is left of the input in the band of the profile, in which pulses are looked for.</source>
        <translation>Ce qui reste de l’entrée dans la bande du profil, où les impulsions sont cherchées.</translation>
    </message>
    <message>
        <source>Clipped</source>
        <translation>Saturé</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Beat Monitor</source>
        <translation>Beat Monitor</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Listen to the input again</source>
        <translation>Éco&amp;uter à nouveau l’entrée</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>&amp;Tempo</source>
        <translation>&amp;Tempo</translation>
    </message>
    <message>
        <source>&amp;Beat lamp</source>
        <translation>Voyant de &amp;beat</translation>
    </message>
    <message>
        <source>P&amp;ulse lamp</source>
        <translation>Voyant d’&amp;impulsion</translation>
    </message>
    <message>
        <source>&amp;Spectrum</source>
        <translation>&amp;Spectre</translation>
    </message>
    <message>
        <source>T&amp;hreshold</source>
        <translation>Se&amp;uil</translation>
    </message>
    <message>
        <source>&amp;Input devices</source>
        <translation>&amp;Entrées audio</translation>
    </message>
    <message>
        <source>&amp;Profiles</source>
        <translation>&amp;Profils</translation>
    </message>
    <message>
        <source>&amp;Manual beat</source>
        <translation>Beat &amp;manuel</translation>
    </message>
    <message>
        <source>&amp;Durations</source>
        <translation>&amp;Durées</translation>
    </message>
    <message>
        <source>&amp;Advanced settings</source>
        <translation>Réglages &amp;avancés</translation>
    </message>
    <message>
        <source>R&amp;eset button</source>
        <translation>Bouton de &amp;réinitialisation</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Aid&amp;e</translation>
    </message>
    <message>
        <source>&amp;About beat-monitor</source>
        <translation>À &amp;propos de beat-monitor</translation>
    </message>
    <message>
        <source>Spectrum</source>
        <translation>Spectre</translation>
    </message>
    <message>
        <source>Volume and threshold</source>
        <translation>Volume et seuil</translation>
    </message>
    <message>
        <source>Reset (R)</source>
        <translation>Réinitialiser (R)</translation>
    </message>
    <message>
        <source>Forgets the tempo and starts to search again.</source>
        <translation>Oublie le tempo et recommence la recherche.</translation>
    </message>
    <message>
        <source>Open audio file</source>
        <translation>Ouvrir un fichier audio</translation>
    </message>
    <message>
        <source>Audio files (*.wav *.flac *.ogg *.opus *.mp3 *.aiff *.aif);;All files (*)</source>
        <translation>Fichiers audio (*.wav *.flac *.ogg *.opus *.mp3 *.aiff *.aif);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>About beat-monitor</source>
        <translation>À propos de beat-monitor</translation>
    </message>
    <message>
        <source>&lt;b&gt;beat-monitor %1&lt;/b&gt;&lt;p&gt;Shows the beat and the tempo of live music.&lt;/p&gt;&lt;p&gt;MIT licence.&lt;/p&gt;</source>
        <translation>&lt;b&gt;beat-monitor %1&lt;/b&gt;&lt;p&gt;Montre le beat et le tempo de la musique en direct.&lt;/p&gt;&lt;p&gt;Licence MIT.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;Open audio file…</source>
        <translation>&amp;Ouvrir un fichier audio…</translation>
    </message>
    <message>
        <source>&amp;Beat</source>
        <translation>&amp;Beat</translation>
    </message>
    <message>
        <source>S&amp;oft flash</source>
        <translation>Flash d&amp;oux</translation>
    </message>
    <message>
        <source>The stage view only glows with the beat.</source>
        <translation>La vue de scène ne fait que luire avec le beat.</translation>
    </message>
    <message>
        <source>At most three &amp;flashes a second</source>
        <translation>Au plus trois &amp;flashs par seconde</translation>
    </message>
    <message>
        <source>High &amp;contrast</source>
        <translation>&amp;Contraste élevé</translation>
    </message>
    <message>
        <source>No input</source>
        <translation>Pas d’entrée</translation>
    </message>
    <message>
        <source>&amp;Last two minutes</source>
        <translation>&amp;Les deux dernières minutes</translation>
    </message>
    <message>
        <source>Last two minutes</source>
        <translation>Deux dernières minutes</translation>
    </message>
    <message>
        <source>&amp;Save what happened…</source>
        <translation>En&amp;registrer ce qui s’est passé…</translation>
    </message>
    <message>
        <source>Save what happened</source>
        <translation>Enregistrer ce qui s’est passé</translation>
    </message>
    <message>
        <source>Zip files (*.zip);;All files (*)</source>
        <translation>Fichiers zip (*.zip);;Tous les fichiers (*)</translation>
    </message>
</context>
<context>
    <name>ManualBeatPanel</name>
    <message>
        <source>Manual beat</source>
        <translation>Beat manuel</translation>
    </message>
    <message>
        <source>Tap (T)</source>
        <translation>Frapper (T)</translation>
    </message>
    <message>
        <source>Tap with the beat: here, or with the key T.</source>
        <translation>Frappez en rythme&#xa0;: ici ou avec la touche T.</translation>
    </message>
    <message>
        <source>&amp;Round</source>
        <translation>Arr&amp;ondir</translation>
    </message>
    <message>
        <source>%1 BPM</source>
        <translation>%1 BPM</translation>
    </message>
    <message>
        <source>Tap with the beat</source>
        <translation>Frappez en rythme</translation>
    </message>
    <message>
        <source>Ha&amp;lf</source>
        <translation>Moi&amp;tié</translation>
    </message>
    <message>
        <source>Dou&amp;ble</source>
        <translation>Dou&amp;ble</translation>
    </message>
    <message>
        <source>Half the tempo, at once: here, or with the arrow down.</source>
        <translation>La moitié du tempo, aussitôt : ici ou avec la flèche vers le bas.</translation>
    </message>
    <message>
        <source>Twice the tempo, at once: here, or with the arrow up.</source>
        <translation>Le double du tempo, aussitôt : ici ou avec la flèche vers le haut.</translation>
    </message>
    <message>
        <source>The nearest whole tempo: here, or with the key Y.</source>
        <translation>Le tempo entier le plus proche : ici ou avec la touche Y.</translation>
    </message>
    <message>
        <source>Keeps this tempo until it is released, whatever the music does: here, or with the key H.</source>
        <translation>Garde ce tempo jusqu’à ce qu’il soit relâché, quoi que fasse la musique : ici ou avec la touche H.</translation>
    </message>
    <message>
        <source>The one (Space)</source>
        <translation>Le un (espace)</translation>
    </message>
    <message>
        <source>The beat of now is the first of the bar: here, or with the space bar.</source>
        <translation>Le beat de maintenant est le premier de la mesure : ici ou avec la barre d’espace.</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <source>All beats that are shown and sent fall later by so much, or earlier when it is negative.</source>
        <translation>Tous les beats montrés et envoyés tombent d’autant plus tard, ou plus tôt si c’est négatif.</translation>
    </message>
    <message>
        <source>Tempo of the beats</source>
        <translation>Tempo des beats</translation>
    </message>
    <message>
        <source>Lo&amp;cked (H)</source>
        <translation>&amp;Verrouillé (H)</translation>
    </message>
    <message>
        <source>Lo&amp;ck (H)</source>
        <translation>&amp;Verrouiller (H)</translation>
    </message>
    <message>
        <source>Held until released</source>
        <translation>Tenu jusqu’au relâchement</translation>
    </message>
    <message>
        <source>The hand leads</source>
        <translation>La main mène</translation>
    </message>
    <message>
        <source>The music leads, at %1/%2 of its tempo</source>
        <translation>La musique mène, à %1/%2 de son tempo</translation>
    </message>
    <message>
        <source>The music leads</source>
        <translation>La musique mène</translation>
    </message>
    <message>
        <source>Shift the beats by:</source>
        <translation>Décaler les beats de :</translation>
    </message>
    <message>
        <source>Shift of the beats</source>
        <translation>Décalage des beats</translation>
    </message>
</context>
<context>
    <name>MomentFile</name>
    <message>
        <source>“%1” cannot be written: %2</source>
        <translation>« %1 » ne peut pas être écrit : %2</translation>
    </message>
    <message>
        <source>sound.flac        the sound, as it was kept
</source>
        <translation>sound.flac        le son, tel qu’il a été gardé
</translation>
    </message>
    <message>
        <source>What beat-monitor %1 saw in the last two minutes.

strip.png         the strip: what was said, beats, level, tempo
strip.json        the same as numbers; times are seconds before it was saved
log.txt           what was said, with the time of day
settings.json     the settings of the analysis
AudioAnalyzer.ini the window and the outputs, without secrets
%2</source>
        <translation>Ce que beat-monitor %1 a vu ces deux dernières minutes.

strip.png         la bande : ce qui a été dit, beats, niveau, tempo
strip.json        la même chose en nombres ; les temps sont des secondes avant l’enregistrement
log.txt           ce qui a été dit, avec l’heure
settings.json     les réglages de l’analyse
AudioAnalyzer.ini la fenêtre et les sorties, sans secrets
%2</translation>
    </message>
</context>
<context>
    <name>MonitorSession</name>
    <message>
        <source>The choice of the beats cannot be stored in %1.</source>
        <translation>Le choix des beats ne peut pas être enregistré dans %1.</translation>
    </message>
</context>
<context>
    <name>ProfileCheck</name>
    <message>
        <source>Give the profile a name.</source>
        <translation>Donnez un nom au profil.</translation>
    </message>
    <message numerus="yes">
        <source>The name has %n character(s) too many.</source>
        <translation>
            <numerusform>Le nom compte %n caractère de trop.</numerusform>
            <numerusform>Le nom compte %n caractères de trop.</numerusform>
        </translation>
    </message>
    <message>
        <source>There is a profile “%1” already; choose another name.</source>
        <translation>Il existe déjà un profil «&#xa0;%1&#xa0;»&#xa0;; choisissez un autre nom.</translation>
    </message>
    <message>
        <source>The lowest tempo must be at least 1 BPM.</source>
        <translation>Le tempo le plus lent doit être d’au moins 1 BPM.</translation>
    </message>
    <message>
        <source>The highest tempo must be at most %1 BPM.</source>
        <translation>Le tempo le plus rapide doit être d’au plus %1 BPM.</translation>
    </message>
    <message>
        <source>The lowest tempo must not be above the highest.</source>
        <translation>Le tempo le plus lent ne doit pas dépasser le plus rapide.</translation>
    </message>
    <message>
        <source>The lower edge must not be above the upper edge.</source>
        <translation>La limite basse ne doit pas dépasser la limite haute.</translation>
    </message>
    <message>
        <source>The sensibility must be 0 or more.</source>
        <translation>La sensibilité doit être de 0 ou plus.</translation>
    </message>
</context>
<context>
    <name>ProfileEditor</name>
    <message>
        <source>Lowest and highest tempo to look for, 1 to %1 BPM</source>
        <translation>Tempo le plus lent et le plus rapide à chercher, 1 à %1 BPM</translation>
    </message>
    <message>
        <source>Lower and upper edge of the band to listen to</source>
        <translation>Limites basse et haute de la bande écoutée</translation>
    </message>
    <message>
        <source>A pulse is that many times louder than the average; 0 or more</source>
        <translation>Une impulsion dépasse d’autant de fois le volume moyen&#xa0;; 0 ou plus</translation>
    </message>
    <message>
        <source>A name of your choice</source>
        <translation>Un nom de votre choix</translation>
    </message>
    <message>
        <source>New profile</source>
        <translation>Nouveau profil</translation>
    </message>
    <message>
        <source>Profile “%1”</source>
        <translation>Profil «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Nom&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Tempo:</source>
        <translation>&amp;Tempo&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Band:</source>
        <translation>&amp;Bande&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Sensibility:</source>
        <translation>&amp;Sensibilité&#xa0;:</translation>
    </message>
    <message>
        <source>Lowest tempo</source>
        <translation>Tempo le plus lent</translation>
    </message>
    <message>
        <source>Highest tempo</source>
        <translation>Tempo le plus rapide</translation>
    </message>
    <message>
        <source>Lower edge of the band</source>
        <translation>Limite basse de la bande</translation>
    </message>
    <message>
        <source>Upper edge of the band</source>
        <translation>Limite haute de la bande</translation>
    </message>
    <message>
        <source> BPM</source>
        <translation> BPM</translation>
    </message>
    <message>
        <source> Hz</source>
        <translation> Hz</translation>
    </message>
    <message>
        <source>no edge</source>
        <translation>aucune</translation>
    </message>
    <message>
        <source>This profile is built in: changes last until the program ends. To keep them, save them as a new profile under a name of its own.</source>
        <translation>Ce profil est intégré&#xa0;: les modifications durent jusqu’à la fermeture du programme. Pour les garder, enregistrez-les comme nouveau profil, sous un autre nom.</translation>
    </message>
    <message>
        <source>&amp;Use until exit</source>
        <translation>&amp;Utiliser jusqu’à la fermeture</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Save as ne&amp;w</source>
        <translation>&amp;Enregistrer comme nouveau</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
</context>
<context>
    <name>ProfilesModel</name>
    <message>
        <source>%1 (%2 to %3 BPM)</source>
        <comment>name (tempo range)</comment>
        <translation>%1 (%2 à %3 BPM)</translation>
    </message>
    <message>
        <source>%1, changed until exit</source>
        <translation>%1, modifié jusqu’à la fermeture</translation>
    </message>
</context>
<context>
    <name>ProfilesPanel</name>
    <message>
        <source>%1 (copy)</source>
        <translation>%1 (copie)</translation>
    </message>
    <message>
        <source>%1 (copy %2)</source>
        <translation>%1 (copie %2)</translation>
    </message>
    <message>
        <source>Profiles</source>
        <translation>Profils</translation>
    </message>
    <message>
        <source>Make a new profile.</source>
        <translation>Créer un nouveau profil.</translation>
    </message>
    <message>
        <source>D&amp;uplicate</source>
        <translation>&amp;Dupliquer</translation>
    </message>
    <message>
        <source>Make a profile of your own from this one.</source>
        <translation>Créer votre propre profil à partir de celui-ci.</translation>
    </message>
    <message>
        <source>&amp;Edit…</source>
        <translation>&amp;Modifier…</translation>
    </message>
    <message>
        <source>Change name, tempo range, band and sensibility (F2).</source>
        <translation>Modifier le nom, la plage de tempo, la bande et la sensibilité (F2).</translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation>&amp;Supprimer</translation>
    </message>
    <message>
        <source>Br&amp;ing back</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>Your own profile; it is saved with the settings.</source>
        <translation>Votre propre profil&#xa0;; il est enregistré avec les réglages.</translation>
    </message>
    <message>
        <source>Built in: changes last until the program ends. To keep them, duplicate it.</source>
        <translation>Profil intégré&#xa0;: les modifications durent jusqu’à la fermeture du programme. Pour les garder, dupliquez-le.</translation>
    </message>
    <message>
        <source>%1, sensibility %2. %3</source>
        <comment>band, sensibility. kind of profile</comment>
        <translation>%1, sensibilité %2. %3</translation>
    </message>
    <message>
        <source>Remove this profile (Del).</source>
        <translation>Supprimer ce profil (Suppr).</translation>
    </message>
    <message>
        <source>A built-in profile cannot be removed.</source>
        <translation>Un profil intégré ne peut pas être supprimé.</translation>
    </message>
    <message>
        <source>“%1” is removed.</source>
        <translation>«&#xa0;%1&#xa0;» est supprimé.</translation>
    </message>
    <message>
        <source>All frequencies</source>
        <translation>Toutes les fréquences</translation>
    </message>
    <message>
        <source>Up to %1 Hz</source>
        <translation>Jusqu’à %1 Hz</translation>
    </message>
    <message>
        <source>From %1 Hz</source>
        <translation>À partir de %1 Hz</translation>
    </message>
    <message>
        <source>%1 to %2 Hz</source>
        <translation>%1 à %2 Hz</translation>
    </message>
    <message>
        <source>A&amp;dd…</source>
        <translation>A&amp;jouter…</translation>
    </message>
    <message>
        <source>Automatic: follows any music by itself</source>
        <translation>Automatique : suit toute musique de lui-même</translation>
    </message>
    <message>
        <source>Or choose a profile for the tempo range and band of your music.</source>
        <translation>Ou choisissez un profil pour la plage de tempo et la bande de votre musique.</translation>
    </message>
</context>
<context>
    <name>SaveDialog</name>
    <message>
        <source>with &amp;sound</source>
        <translation>avec le &amp;son</translation>
    </message>
    <message>
        <source>Save what happened</source>
        <translation>Enregistrer ce qui s’est passé</translation>
    </message>
    <message>
        <source>One zip file with the last two minutes as a picture and as numbers, what was said, and the settings.</source>
        <translation>Un fichier zip avec les deux dernières minutes en image et en nombres, ce qui a été dit et les réglages.</translation>
    </message>
    <message>
        <source>Sa&amp;ve…</source>
        <translation>En&amp;registrer…</translation>
    </message>
    <message>
        <source>%1 s of sound are kept by now, in memory alone; two minutes at most, until this is switched off.</source>
        <translation>%1 s de son sont gardées à présent, en mémoire seulement ; deux minutes au plus, jusqu’à ce que ce soit désactivé.</translation>
    </message>
    <message>
        <source>No sound is kept. Tick it, and from then on the last two minutes are.</source>
        <translation>Aucun son n’est gardé. Si c’est coché, les deux dernières minutes le sont à partir de là.</translation>
    </message>
</context>
<context>
    <name>SourceTexts</name>
    <message>
        <source>No data comes from “%1”. Check that nothing else holds it.</source>
        <translation>Aucune donnée ne vient de «&#xa0;%1&#xa0;». Vérifiez que rien d’autre ne l’occupe.</translation>
    </message>
    <message>
        <source>Nothing but silence from “%1”. Start the music or unmute the input.</source>
        <translation>Rien que du silence de «&#xa0;%1&#xa0;». Lancez la musique ou rétablissez le son de l’entrée.</translation>
    </message>
    <message>
        <source>Too quiet to count as music. Turn the input up, or lower the stop threshold.</source>
        <translation>Trop faible pour compter comme de la musique. Montez l’entrée ou baissez le seuil de silence.</translation>
    </message>
    <message>
        <source>Clipped: the level is cut off at full scale. Turn the input down.</source>
        <translation>Saturation&#xa0;: le niveau est écrêté à pleine échelle. Baissez l’entrée.</translation>
    </message>
    <message>
        <source>“%1” offers no format that can be analysed. Choose another input.</source>
        <translation>«&#xa0;%1&#xa0;» n’offre aucun format analysable. Choisissez une autre entrée.</translation>
    </message>
    <message>
        <source>“%1” delivers %2 channels only; a mono input or a monitor is needed.</source>
        <translation>«&#xa0;%1&#xa0;» ne fournit que %2 canaux&#xa0;; il faut une entrée mono ou un moniteur.</translation>
    </message>
    <message>
        <source>Waiting for “%1”; it resumes as soon as the device is there.</source>
        <translation>En attente de «&#xa0;%1&#xa0;»&#xa0;; reprise dès que le périphérique est là.</translation>
    </message>
    <message>
        <source>Opening “%1” …</source>
        <translation>Ouverture de «&#xa0;%1&#xa0;» …</translation>
    </message>
    <message>
        <source>Listening to “%1”</source>
        <translation>Écoute de «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>Listening to “%1”: no music</source>
        <translation>Écoute de «&#xa0;%1&#xa0;»&#xa0;: pas de musique</translation>
    </message>
    <message>
        <source>No input device. Plug one in, start a sound server, or drop an audio file here.</source>
        <translation>Aucune entrée. Branchez-en une, lancez un serveur de son ou déposez ici un fichier audio.</translation>
    </message>
    <message>
        <source>“%1” has ended</source>
        <translation>«&#xa0;%1&#xa0;» est terminé</translation>
    </message>
    <message>
        <source>“%1”: %2</source>
        <translation>«&#xa0;%1&#xa0;»&#xa0;: %2</translation>
    </message>
    <message>
        <source>Playing “%1”</source>
        <translation>Lecture de « %1 »</translation>
    </message>
    <message>
        <source>Playing “%1” without sound: %2</source>
        <translation>Lecture de « %1 » sans son : %2</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>there is no output</source>
        <translation>il n’y a pas de sortie</translation>
    </message>
    <message>
        <source>the output takes no sound</source>
        <translation>la sortie ne prend pas de son</translation>
    </message>
    <message>
        <source>no sound server answers</source>
        <translation>aucun serveur de son ne répond</translation>
    </message>
    <message>
        <source>muted</source>
        <translation>muet</translation>
    </message>
</context>
<context>
    <name>SpeakersPanel</name>
    <message>
        <source>Speakers that pump with the beat</source>
        <translation>Enceintes qui pulsent en rythme</translation>
    </message>
</context>
<context>
    <name>SpectrumPanel</name>
    <message>
        <source>Hz</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>dB</source>
        <translation>dB</translation>
    </message>
    <message>
        <source>Amplitude spectrum</source>
        <translation>Spectre d’amplitude</translation>
    </message>
    <message>
        <source>The loudest bin so far is 0 dB. Shaded: the band of the selected profile, in which pulses are looked for.</source>
        <translation>0 dB est la valeur la plus forte jusqu’ici. En teinté&#xa0;: la bande du profil choisi, où les impulsions sont cherchées.</translation>
    </message>
</context>
<context>
    <name>StageView</name>
    <message>
        <source>Stage view</source>
        <translation>Vue de scène</translation>
    </message>
    <message>
        <source>Held</source>
        <translation>Tenu</translation>
    </message>
    <message>
        <source>Hand</source>
        <translation>Main</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musique</translation>
    </message>
    <message>
        <source>No beat</source>
        <translation>Pas de beat</translation>
    </message>
</context>
<context>
    <name>StripCanvas</name>
    <message>
        <source>The last two minutes</source>
        <translation>Les deux dernières minutes</translation>
    </message>
    <message>
        <source>%1 s ago</source>
        <translation>il y a %1 s</translation>
    </message>
    <message>
        <source>now</source>
        <translation>maintenant</translation>
    </message>
    <message>
        <source>Level %1 dB</source>
        <translation>Niveau %1 dB</translation>
    </message>
    <message>
        <source>%1 BPM</source>
        <translation>%1 BPM</translation>
    </message>
    <message>
        <source>No music</source>
        <translation>Pas de musique</translation>
    </message>
</context>
<context>
    <name>StripPanel</name>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Holds the picture still (P)</source>
        <translation>Fige l’image (P)</translation>
    </message>
    <message>
        <source>Nearer</source>
        <translation>Plus près</translation>
    </message>
    <message>
        <source>Shows less time (+, or the mouse wheel)</source>
        <translation>Montre moins de temps (+ ou la molette)</translation>
    </message>
    <message>
        <source>Farther</source>
        <translation>Plus loin</translation>
    </message>
    <message>
        <source>Shows more time (−, or the mouse wheel)</source>
        <translation>Montre plus de temps (− ou la molette)</translation>
    </message>
</context>
<context>
    <name>Tray</name>
    <message>
        <source>&amp;Hide window</source>
        <translation>&amp;Masquer la fenêtre</translation>
    </message>
    <message>
        <source>&amp;Show window</source>
        <translation>&amp;Afficher la fenêtre</translation>
    </message>
</context>
<context>
    <name>ZipWriter</name>
    <message>
        <source>it cannot be written</source>
        <translation>il ne peut pas être écrit</translation>
    </message>
</context>
</TS>
