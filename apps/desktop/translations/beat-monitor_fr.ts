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
    <message>
        <source>%1, level %2 dB</source>
        <comment>device</comment>
        <translation>%1, niveau %2 dB</translation>
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
        <source>Last two mi&amp;nutes</source>
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
    <message>
        <source>&amp;Outputs</source>
        <translation>S&amp;orties</translation>
    </message>
    <message>
        <source>Soft f&amp;lash</source>
        <translation>F&amp;lash doux</translation>
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
    <name>OscExpressionParser</name>
    <message>
        <source>it is too long</source>
        <translation>c’est trop long</translation>
    </message>
    <message>
        <source>unexpected &quot;%1&quot;</source>
        <translation>« %1 » inattendu</translation>
    </message>
    <message>
        <source>it is nested too deep</source>
        <translation>l’imbrication est trop profonde</translation>
    </message>
    <message>
        <source>it ends too early</source>
        <translation>cela finit trop tôt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not known</source>
        <translation>« %1 » est inconnu</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is missing</source>
        <translation>« %1 » manque</translation>
    </message>
</context>
<context>
    <name>OutputEditor</name>
    <message>
        <source>May stay empty.</source>
        <translation>Peut rester vide.</translation>
    </message>
    <message>
        <source>This kind has none.</source>
        <translation>Ce type n’en a pas.</translation>
    </message>
    <message>
        <source>New output</source>
        <translation>Nouvelle sortie</translation>
    </message>
    <message>
        <source>Output “%1”</source>
        <translation>Sortie « %1 »</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Nom :</translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation>&amp;Type :</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Adresse :</translation>
    </message>
    <message>
        <source>&amp;Preset:</source>
        <translation>&amp;Préréglage :</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>Annu&amp;ler</translation>
    </message>
</context>
<context>
    <name>OutputSettings</name>
    <message>
        <source>%1: output %2 is left out: %3</source>
        <translation>%1 : la sortie %2 est omise : %3</translation>
    </message>
    <message>
        <source>%1: only the first %2 outputs count</source>
        <translation>%1 : seules les %2 premières sorties comptent</translation>
    </message>
    <message>
        <source>there are %1 outputs already</source>
        <translation>il y a déjà %1 sorties</translation>
    </message>
    <message>
        <source>there is no output &quot;%1&quot;</source>
        <translation>il n’y a pas de sortie « %1 »</translation>
    </message>
    <message>
        <source>its name must have 1 to %1 letters</source>
        <translation>son nom doit avoir de 1 à %1 lettres</translation>
    </message>
    <message>
        <source>there is an output &quot;%1&quot; already</source>
        <translation>il y a déjà une sortie « %1 »</translation>
    </message>
    <message>
        <source>it has no kind</source>
        <translation>elle n’a pas de type</translation>
    </message>
    <message>
        <source>its kind, address or preset is too long, or no text</source>
        <translation>son type, son adresse ou son préréglage est trop long, ou n’est pas du texte</translation>
    </message>
    <message>
        <source>its offset must be %1 to %2 ms</source>
        <translation>son décalage doit être de %1 à %2 ms</translation>
    </message>
</context>
<context>
    <name>OutputStore</name>
    <message>
        <source>The outputs cannot be stored in %1.</source>
        <translation>Les sorties ne peuvent pas être enregistrées dans %1.</translation>
    </message>
</context>
<context>
    <name>OutputTrial</name>
    <message>
        <source>it was lost</source>
        <translation>elle a été perdue</translation>
    </message>
    <message>
        <source>%1 beats were sent</source>
        <translation>%1 beats ont été envoyés</translation>
    </message>
    <message>
        <source>it was not reached</source>
        <translation>elle n’a pas été atteinte</translation>
    </message>
</context>
<context>
    <name>OutputsModel</name>
    <message>
        <source>reached</source>
        <translation>atteinte</translation>
    </message>
    <message>
        <source>away</source>
        <translation>absente</translation>
    </message>
    <message>
        <source>cannot be used</source>
        <translation>inutilisable</translation>
    </message>
    <message>
        <source>off</source>
        <translation>coupée</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>output: its state</comment>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>output with its state, what there is to say of it</comment>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>OutputsPanel</name>
    <message>
        <source>It is being looked for.</source>
        <translation>On la cherche.</translation>
    </message>
    <message>
        <source>All outputs are off: the key O switches them on.</source>
        <translation>Toutes les sorties sont coupées : la touche O les active.</translation>
    </message>
    <message>
        <source>Not enabled: nothing is sent to it.</source>
        <translation>Pas cochée : rien ne lui est envoyé.</translation>
    </message>
    <message>
        <source>Two bars at 120 BPM: %1.</source>
        <translation>Deux mesures à 120 BPM : %1.</translation>
    </message>
    <message>
        <source>The test has failed: %1.</source>
        <translation>L’essai a échoué : %1.</translation>
    </message>
    <message>
        <source>The test is over, %1: %2.</source>
        <translation>L’essai est terminé, %1 : %2.</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Sorties</translation>
    </message>
    <message>
        <source>What is checked gets the beats. Enter checks, Ins adds, F2 changes, Del removes.</source>
        <translation>Ce qui est coché reçoit les beats. Entrée coche, Inser ajoute, F2 modifie, Suppr supprime.</translation>
    </message>
    <message>
        <source>&amp;Add…</source>
        <translation>&amp;Ajouter…</translation>
    </message>
    <message>
        <source>C&amp;hange…</source>
        <translation>Modi&amp;fier…</translation>
    </message>
    <message>
        <source>Change name, kind, address and preset.</source>
        <translation>Modifier le nom, le type, l’adresse et le préréglage.</translation>
    </message>
    <message>
        <source>Remo&amp;ve</source>
        <translation>S&amp;upprimer</translation>
    </message>
    <message>
        <source>Send nothing to it any more, and forget it.</source>
        <translation>Ne plus rien lui envoyer et l’oublier.</translation>
    </message>
    <message>
        <source>Test no&amp;w</source>
        <translation>Essa&amp;yer</translation>
    </message>
    <message>
        <source>Sends two bars at 120 BPM, without any music.</source>
        <translation>Envoie deux mesures à 120 BPM, sans musique.</translation>
    </message>
    <message>
        <source>O&amp;ffset:</source>
        <translation>Décalag&amp;e :</translation>
    </message>
    <message>
        <source>By how much its beats come later, or earlier to the left. At once.</source>
        <translation>De combien ses beats arrivent plus tard, ou plus tôt vers la gauche. Aussitôt.</translation>
    </message>
    <message>
        <source>Offset of the output</source>
        <translation>Décalage de la sortie</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <source>None yet.</source>
        <translation>Aucune encore.</translation>
    </message>
    <message>
        <source>Lights, visuals or an instrument that follow the beat.</source>
        <translation>Lumières, images ou un instrument qui suivent le beat.</translation>
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
    <message>
        <source>Play music: the tempo comes by itself. “%1” is listened to.</source>
        <translation>Jouez de la musique : le tempo vient tout seul. On écoute « %1 ».</translation>
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
<context>
    <name>shared</name>
    <message>
        <source>&quot;%1&quot;: give %2, or nothing</source>
        <translation>« %1 » : indiquez %2, ou rien</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: give some of beat 0 to 127 or none, bar 0 to 127 or none, channel 1 to 16, velocity 1 to 127, length 1 to 24, with commas between them</source>
        <translation>« %1 » : indiquez parmi beat 0 à 127 ou none, bar 0 à 127 ou none, channel 1 à 16, velocity 1 à 127, length 1 à 24, séparés par des virgules</translation>
    </message>
    <message>
        <source>send MIDI clock; without PORT at a port of its own</source>
        <translation>envoie l’horloge MIDI ; sans PORT, sur un port à elle</translation>
    </message>
    <message>
        <source>with always the clock also ticks while the music stands</source>
        <translation>avec always, l’horloge bat aussi quand la musique est arrêtée</translation>
    </message>
    <message>
        <source>the instrument starts, plays two bars, shows 120 BPM and stops</source>
        <translation>l’instrument démarre, joue deux mesures, affiche 120 BPM et s’arrête</translation>
    </message>
    <message>
        <source>play notes on beats and bars; without PORT at a port of its own</source>
        <translation>joue des notes sur les beats et les mesures ; sans PORT, sur un port à elle</translation>
    </message>
    <message>
        <source>NOTES like &quot;beat 36, bar 38, channel 10, velocity 100, length 6&quot;;
none for no note, length in 24ths of a beat</source>
        <translation>NOTES comme « beat 36, bar 38, channel 10, velocity 100, length 6 » ;
none pour aucune note, length en 24es de beat</translation>
    </message>
    <message>
        <source>eight notes, half a second apart, and another one with the first and the fifth</source>
        <translation>huit notes espacées d’une demi-seconde, et une autre avec la première et la cinquième</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: give HOST or HOST:PORT, or nothing for all in the net</source>
        <translation>« %1 » : indiquez HOST ou HOST:PORT, ou rien pour tous ceux du réseau</translation>
    </message>
    <message>
        <source>send beats to light programs by OS2L; to all of them without HOST</source>
        <translation>envoie les beats par OS2L aux programmes de lumière ; sans HOST, à tous</translation>
    </message>
    <message>
        <source>the light program gets eight beats; what it has learned from the OS2L beat switches on each, half a second apart</source>
        <translation>le programme de lumière reçoit huit beats ; ce qu’il a appris du beat OS2L change à chacun, toutes les demi-secondes</translation>
    </message>
    <message>
        <source>send beats as Open Sound Control</source>
        <translation>envoie les beats en Open Sound Control</translation>
    </message>
    <message>
        <source>PRESET is one of %1,
or messages of your own</source>
        <translation>Le préréglage est l’un de %1,
ou vos propres messages</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: give HOST:PORT[/PRESET], or tcp:HOST:PORT[/PRESET]</source>
        <translation>« %1 » : indiquez HOST:PORT[/PRESET], ou tcp:HOST:PORT[/PRESET]</translation>
    </message>
    <message>
        <source>messages of your own</source>
        <translation>vos propres messages</translation>
    </message>
    <message>
        <source>Resolume&apos;s tempo goes to 120 BPM, and its beat to the one twice</source>
        <translation>le tempo de Resolume passe à 120 BPM, et son beat deux fois sur le un</translation>
    </message>
    <message>
        <source>Chromatik&apos;s tempo goes to 120 BPM, and its beat counts 1 2 3 4 twice</source>
        <translation>le tempo de Chromatik passe à 120 BPM, et son beat compte deux fois 1 2 3 4</translation>
    </message>
    <message>
        <source>the fader of executor 201 goes to 70.7 %, which is 120 BPM</source>
        <translation>le fader de l’executor 201 passe à 70.7 %, soit 120 BPM</translation>
    </message>
    <message>
        <source>the tempo shown goes to 120 BPM</source>
        <translation>le tempo affiché passe à 120 BPM</translation>
    </message>
    <message>
        <source>an OSC In CHOP gets the channels bpm, beat, count, bar, confidence, phase and playing</source>
        <translation>un OSC In CHOP reçoit les canaux bpm, beat, count, bar, confidence, phase et playing</translation>
    </message>
    <message>
        <source>the OSC signal blinks in QLC+&apos;s input tab, and a button that learned /beat goes on and off eight times</source>
        <translation>le signal OSC clignote dans l’onglet des entrées de QLC+, et un bouton qui a appris /beat s’allume et s’éteint huit fois</translation>
    </message>
    <message>
        <source>the receiver gets /playing 1, eight times /beat, twice /tempo and /bar, and /playing 0</source>
        <translation>le récepteur reçoit /playing 1, huit fois /beat, deux fois /tempo et /bar, et /playing 0</translation>
    </message>
    <message>
        <source>the receiver gets your messages for eight beats and two bars</source>
        <translation>le récepteur reçoit vos messages pour huit beats et deux mesures</translation>
    </message>
    <message>
        <source>%1: give its address</source>
        <translation>%1 : indiquez son adresse</translation>
    </message>
    <message>
        <source>there is no kind of output &quot;%1&quot;; there are: %2</source>
        <translation>il n’y a pas de type de sortie « %1 » ; il y a : %2</translation>
    </message>
    <message>
        <source>send sound and beats to WLED; without HOST to all in the net</source>
        <translation>envoie le son et les beats à WLED ; sans HOST, à tous ceux du réseau</translation>
    </message>
    <message>
        <source>with an effect that shows peaks, Ripple Peak for one, the LEDs answer eight times; there is no sound in the test</source>
        <translation>avec un effet qui montre les crêtes, comme Ripple Peak, les LED répondent huit fois ; l’essai est sans son</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: give a preset, or begin with beat, bar, tempo, playing or tickN</source>
        <translation>« %1 » : indiquez un préréglage, ou commencez par beat, bar, tempo, playing ou tickN</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: the address must begin with / and have no blanks or # * , ? [ ] { }</source>
        <translation>« %1 » : l’adresse doit commencer par / et n’avoir ni espaces ni # * , ? [ ] { }</translation>
    </message>
    <message>
        <source>%1: give a type for each value, at most %2 of i, f, d and h</source>
        <translation>%1 : indiquez un type pour chaque valeur, au plus %2 parmi i, f, d et h</translation>
    </message>
    <message>
        <source>%1: give as many values as types, with commas between them</source>
        <translation>%1 : indiquez autant de valeurs que de types, séparées par des virgules</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot;: %3</source>
        <translation>%1 : « %2 » : %3</translation>
    </message>
</context>
<context>
    <name>shared::AlsaMidiPort</name>
    <message>
        <source>there is no ALSA sequencer: is the module snd-seq loaded?</source>
        <translation>il n’y a pas de séquenceur ALSA : le module snd-seq est-il chargé ?</translation>
    </message>
    <message>
        <source>ALSA port %1</source>
        <translation>port ALSA %1</translation>
    </message>
    <message>
        <source>no ALSA port is named %1</source>
        <translation>aucun port ALSA ne s’appelle %1</translation>
    </message>
</context>
<context>
    <name>shared::ChoicesTurn</name>
    <message>
        <source>%1 is being changed by another program, which does not finish; end that program and try again</source>
        <translation>un autre programme modifie %1 et n’en finit pas ; fermez-le et réessayez</translation>
    </message>
</context>
<context>
    <name>shared::JackMidiPort</name>
    <message>
        <source>no JACK server runs</source>
        <translation>aucun serveur JACK ne tourne</translation>
    </message>
    <message>
        <source>the JACK server refuses a port</source>
        <translation>le serveur JACK refuse un port</translation>
    </message>
    <message>
        <source>JACK port %1</source>
        <translation>port JACK %1</translation>
    </message>
    <message>
        <source>no JACK port is named %1</source>
        <translation>aucun port JACK ne s’appelle %1</translation>
    </message>
    <message>
        <source>the JACK server has gone</source>
        <translation>le serveur JACK a disparu</translation>
    </message>
    <message>
        <source>the JACK server hangs</source>
        <translation>le serveur JACK est bloqué</translation>
    </message>
    <message>
        <source>the JACK port %1 has gone</source>
        <translation>le port JACK %1 a disparu</translation>
    </message>
</context>
<context>
    <name>shared::Os2lReceiver</name>
    <message>
        <source>light program %1</source>
        <translation>programme de lumière %1</translation>
    </message>
    <message>
        <source>no light program at %1: is OS2L on there, and the port right?</source>
        <translation>aucun programme de lumière à %1 : OS2L y est-il activé, et le port est-il juste ?</translation>
    </message>
    <message>
        <source>cannot look for light programs: start avahi-daemon, or give HOST:PORT</source>
        <translation>impossible de chercher des programmes de lumière : démarrez avahi-daemon, ou indiquez HOST:PORT</translation>
    </message>
    <message>
        <source>no light program makes itself known in the net, as _os2l._tcp</source>
        <translation>aucun programme de lumière ne s’annonce sur le réseau comme _os2l._tcp</translation>
    </message>
</context>
<context>
    <name>shared::OscReceiver</name>
    <message>
        <source>OSC to %1 (%2)</source>
        <translation>OSC vers %1 (%2)</translation>
    </message>
    <message>
        <source>OSC to %1 (%2): %3; trying again</source>
        <translation>OSC vers %1 (%2) : %3 ; nouvel essai</translation>
    </message>
    <message>
        <source>OSC to %1 (%2): nothing listens there; going on</source>
        <translation>OSC vers %1 (%2) : rien n’écoute là-bas ; l’envoi continue</translation>
    </message>
    <message>
        <source>sending OSC to %1 (%2), %3</source>
        <translation>envoi d’OSC vers %1 (%2), %3</translation>
    </message>
</context>
<context>
    <name>shared::OscSocket</name>
    <message>
        <source>there is no host &quot;%1&quot;</source>
        <translation>il n’y a pas de machine « %1 »</translation>
    </message>
    <message>
        <source>the host&apos;s name cannot be resolved</source>
        <translation>le nom de la machine ne peut être résolu</translation>
    </message>
    <message>
        <source>nothing listens there</source>
        <translation>rien n’écoute là-bas</translation>
    </message>
    <message>
        <source>nobody answers</source>
        <translation>personne ne répond</translation>
    </message>
    <message>
        <source>the connection is lost</source>
        <translation>la connexion est perdue</translation>
    </message>
    <message>
        <source>it takes nothing</source>
        <translation>il n’accepte rien</translation>
    </message>
    <message>
        <source>the connection is closed</source>
        <translation>la connexion est fermée</translation>
    </message>
</context>
<context>
    <name>shared::OscTemplate</name>
    <message>
        <source>the messages are too long</source>
        <translation>les messages sont trop longs</translation>
    </message>
    <message>
        <source>give 1 to %1 messages</source>
        <translation>indiquez de 1 à %1 messages</translation>
    </message>
    <message>
        <source>the numbers of ticks a beat have no common multiple up to %1</source>
        <translation>les nombres de ticks par beat n’ont pas de multiple commun jusqu’à %1</translation>
    </message>
</context>
<context>
    <name>shared::WledReceiver</name>
    <message>
        <source>%1 is no address that this machine can reach</source>
        <translation>%1 n’est pas une adresse que cette machine peut atteindre</translation>
    </message>
    <message>
        <source>WLED at %1</source>
        <translation>WLED à %1</translation>
    </message>
    <message>
        <source>WLED cannot be reached: %1</source>
        <translation>WLED est injoignable : %1</translation>
    </message>
</context>
</TS>
