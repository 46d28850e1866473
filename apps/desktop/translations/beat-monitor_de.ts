<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>AdvancedSettingsPanel</name>
    <message>
        <source>Advanced settings</source>
        <translation>Weitere Einstellungen</translation>
    </message>
    <message>
        <source>Beats go on at the last tempo while the music is stopped.</source>
        <translation>Die Beats laufen im letzten Tempo weiter, während die Musik gestoppt ist.</translation>
    </message>
    <message>
        <source>The window says so as soon as the music stops.</source>
        <translation>Das Fenster meldet es, sobald die Musik stoppt.</translation>
    </message>
    <message>
        <source>Show the &amp;speakers</source>
        <translation>Lautspre&amp;cher anzeigen</translation>
    </message>
    <message>
        <source>Two speakers pump with the beat.</source>
        <translation>Zwei Lautsprecher pumpen im Takt.</translation>
    </message>
    <message>
        <source>A quiet, dark look for dark places.</source>
        <translation>Eine ruhige, dunkle Darstellung für dunkle Räume.</translation>
    </message>
    <message>
        <source>The window stays above all others.</source>
        <translation>Das Fenster bleibt über allen anderen.</translation>
    </message>
    <message>
        <source>Language of the system</source>
        <translation>Sprache des Systems</translation>
    </message>
    <message>
        <source>Go o&amp;n with virtual beats while stopped</source>
        <translation>&amp;Virtuelle Beats auch bei gestoppter Musik</translation>
    </message>
    <message>
        <source>Show when the music is sto&amp;pped</source>
        <translation>Anzeigen, wenn die &amp;Musik gestoppt ist</translation>
    </message>
    <message>
        <source>Gra&amp;y mode</source>
        <translation>&amp;Graumodus</translation>
    </message>
    <message>
        <source>Always on &amp;top</source>
        <translation>&amp;Immer im Vordergrund</translation>
    </message>
    <message>
        <source>Lan&amp;guage:</source>
        <translation>&amp;Sprache:</translation>
    </message>
</context>
<context>
    <name>AudioFileReader</name>
    <message>
        <source>there is no such file; check its name and folder</source>
        <translation>diese Datei gibt es nicht; prüfen Sie Namen und Ordner</translation>
    </message>
    <message>
        <source>cannot be opened: %1</source>
        <translation>lässt sich nicht öffnen: %1</translation>
    </message>
    <message>
        <source>is a folder; name the audio files in it</source>
        <translation>ist ein Ordner; nennen Sie die Audiodateien darin</translation>
    </message>
    <message>
        <source>the file is empty; get a whole copy of it</source>
        <translation>die Datei ist leer; besorgen Sie eine vollständige Kopie</translation>
    </message>
    <message>
        <source>may not be read; check its permissions</source>
        <translation>darf nicht gelesen werden; prüfen Sie die Zugriffsrechte</translation>
    </message>
    <message>
        <source>is not audio, or is damaged at its start; WAV, FLAC, Ogg Vorbis, Opus, MP3 and AIFF files are read</source>
        <translation>ist kein Audio oder am Anfang beschädigt; gelesen werden WAV-, FLAC-, Ogg-Vorbis-, Opus-, MP3- und AIFF-Dateien</translation>
    </message>
    <message>
        <source>is no audio stream that can be read; for raw 16-bit samples add --raw RATE, else save it to a file first</source>
        <translation>ist kein lesbarer Audiostrom; für rohe 16-Bit-Samples --raw RATE angeben, sonst zuerst in einer Datei speichern</translation>
    </message>
    <message>
        <source>has a sample rate of %1 Hz; convert it to one from %2 to %3 Hz</source>
        <translation>hat eine Abtastrate von %1 Hz; wandeln Sie sie in eine von %2 bis %3 Hz um</translation>
    </message>
    <message>
        <source>cannot be kept in %1 for its decoder: %2; save it to a file first</source>
        <translation>lässt sich für den Decoder nicht in %1 zwischenspeichern: %2; speichern Sie es zuerst in einer Datei</translation>
    </message>
    <message>
        <source>its header counts no samples, though %1 bytes follow it: the recording was not closed</source>
        <translation>der Kopf nennt keine Abtastwerte, obwohl %1 Bytes folgen: die Aufnahme wurde nicht abgeschlossen</translation>
    </message>
    <message>
        <source>is a file of the kind %1, which is not read; convert it to WAV, FLAC, Ogg Vorbis, Opus, MP3 or AIFF: ffmpeg -i FILE song.flac</source>
        <translation>ist eine Datei der Art %1, die nicht gelesen wird; wandeln Sie sie in WAV, FLAC, Ogg Vorbis, Opus, MP3 oder AIFF um: ffmpeg -i DATEI song.flac</translation>
    </message>
    <message>
        <source>truncated: its end is missing</source>
        <translation>abgeschnitten: das Ende fehlt</translation>
    </message>
    <message>
        <source>truncated: %1 of %2 bytes are there</source>
        <translation>abgeschnitten: %1 von %2 Bytes sind da</translation>
    </message>
    <message>
        <source>damaged or truncated: only %1 s of %2 s can be read</source>
        <translation>beschädigt oder abgeschnitten: nur %1 s von %2 s sind lesbar</translation>
    </message>
    <message>
        <source>damaged: %1</source>
        <translation>beschädigt: %1</translation>
    </message>
    <message>
        <source>%1; get a whole copy of it</source>
        <translation>%1; besorgen Sie eine vollständige Kopie</translation>
    </message>
</context>
<context>
    <name>BoothActions</name>
    <message>
        <source>&amp;Profile</source>
        <translation>&amp;Profil</translation>
    </message>
</context>
<context>
    <name>BoothKeys</name>
    <message>
        <source>&amp;Tap the tempo</source>
        <translation>Tempo &amp;tippen</translation>
    </message>
    <message>
        <source>This beat is the &amp;one</source>
        <translation>Dieser Beat ist die &amp;Eins</translation>
    </message>
    <message>
        <source>Round the tempo to &amp;whole BPM</source>
        <translation>Tempo auf &amp;ganze BPM runden</translation>
    </message>
    <message>
        <source>&amp;Hold the tempo, or release it</source>
        <translation>Tempo &amp;halten oder freigeben</translation>
    </message>
    <message>
        <source>Beats 10 ms &amp;earlier</source>
        <translation>Beats 10 ms &amp;früher</translation>
    </message>
    <message>
        <source>Beats 10 ms &amp;later</source>
        <translation>Beats 10 ms &amp;später</translation>
    </message>
    <message>
        <source>&amp;Double the tempo</source>
        <translation>Tempo &amp;verdoppeln</translation>
    </message>
    <message>
        <source>Hal&amp;f the tempo</source>
        <translation>Tempo h&amp;albieren</translation>
    </message>
    <message>
        <source>&amp;Search anew</source>
        <translation>&amp;Neu suchen</translation>
    </message>
    <message>
        <source>&amp;Automatic tracking</source>
        <translation>&amp;Automatische Verfolgung</translation>
    </message>
    <message>
        <source>The profile of that place in the &amp;list</source>
        <translation>Das Profil dieses Platzes in der &amp;Liste</translation>
    </message>
    <message>
        <source>Stage &amp;view, on the next screen, and back</source>
        <translation>Bü&amp;hnenansicht, auf dem nächsten Bildschirm, und zurück</translation>
    </message>
    <message>
        <source>Show the &amp;keys</source>
        <translation>Die &amp;Tasten zeigen</translation>
    </message>
    <message>
        <source>O&amp;utputs on or off</source>
        <translation>A&amp;usgänge an oder aus</translation>
    </message>
    <message>
        <source>&amp;Mute the file that is played, or not</source>
        <translation>Abgespielte Datei stu&amp;mm schalten oder nicht</translation>
    </message>
    <message>
        <source>Pause the last two minutes, or &amp;go on</source>
        <translation>Letzte zwei Minuten anhalten oder f&amp;ortsetzen</translation>
    </message>
    <message>
        <source>Sho&amp;w less time of them</source>
        <translation>W&amp;eniger Zeit davon zeigen</translation>
    </message>
    <message>
        <source>Show mo&amp;re time of them</source>
        <translation>&amp;Mehr Zeit davon zeigen</translation>
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
        <translation>Tempo in Schlägen pro Minute</translation>
    </message>
    <message>
        <source>Waiting for sound.</source>
        <translation>Wartet auf Ton.</translation>
    </message>
    <message>
        <source>Stopped; this was the tempo.</source>
        <translation>Gestoppt; das war das Tempo.</translation>
    </message>
    <message>
        <source>Stopped: no music.</source>
        <translation>Gestoppt: keine Musik.</translation>
    </message>
    <message>
        <source>Held: not measured now.</source>
        <translation>Gehalten: wird gerade nicht gemessen.</translation>
    </message>
    <message>
        <source>Measured %1 BPM, out of the range of “%2”</source>
        <translation>Gemessen: %1 BPM, außerhalb des Bereichs von „%2“</translation>
    </message>
    <message>
        <source>%1; half of it: %2.</source>
        <translation>%1; die Hälfte: %2.</translation>
    </message>
    <message>
        <source>%1; the double: %2.</source>
        <translation>%1; das Doppelte: %2.</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>Misst …</translation>
    </message>
    <message>
        <source>Confidence</source>
        <translation>Gewissheit</translation>
    </message>
    <message>
        <source>How sure it is that the next beat falls with the music&apos;s.</source>
        <translation>Wie sicher es ist, dass der nächste Schlag mit dem der Musik fällt.</translation>
    </message>
    <message>
        <source>Bar</source>
        <translation>Takt</translation>
    </message>
    <message>
        <source>Beat in the bar</source>
        <translation>Schlag im Takt</translation>
    </message>
    <message>
        <source>The place of the beat in its bar.</source>
        <translation>Der Platz des Schlags in seinem Takt.</translation>
    </message>
    <message>
        <source>Held by hand.</source>
        <translation>Von Hand gehalten.</translation>
    </message>
    <message>
        <source>Led by hand.</source>
        <translation>Von Hand geführt.</translation>
    </message>
</context>
<context>
    <name>ConfigurationStore</name>
    <message>
        <source>%1 cannot be read or is damaged; to begin anew: audio-analyzer config reset</source>
        <translation>%1 ist nicht lesbar oder beschädigt; für einen Neuanfang: audio-analyzer config reset</translation>
    </message>
    <message>
        <source>%1 cannot be written; the folder %2 must be writable, and the name free for a file</source>
        <translation>%1 lässt sich nicht schreiben; der Ordner %2 muss beschreibbar und der Name für eine Datei frei sein</translation>
    </message>
    <message>
        <source>%1 is not a file; move it away</source>
        <translation>%1 ist keine Datei; räumen Sie es beiseite</translation>
    </message>
    <message>
        <source>%1 %2 instead of %3</source>
        <comment>setting, value taken, value in the file</comment>
        <translation>%1 %2 statt %3</translation>
    </message>
    <message>
        <source>%1 of the profile &quot;%2&quot;</source>
        <translation>%1 im Profil „%2“</translation>
    </message>
    <message>
        <source>%1 holds values beyond their limits; taken: %2</source>
        <translation>%1 enthält Werte außerhalb ihrer Grenzen; genommen: %2</translation>
    </message>
    <message>
        <source>%1 is being changed by another program, which does not finish; end that program and try again</source>
        <translation>%1 wird gerade von einem anderen Programm geändert, das nicht fertig wird; beenden Sie es und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>%1 cannot be written; remove %2</source>
        <translation>%1 lässt sich nicht schreiben; entfernen Sie %2</translation>
    </message>
</context>
<context>
    <name>DurationsPanel</name>
    <message>
        <source>Durations</source>
        <translation>Zeiten</translation>
    </message>
    <message>
        <source>&amp;Quiet up to:</source>
        <translation>Stille &amp;bis:</translation>
    </message>
    <message>
        <source>Restore &amp;defaults</source>
        <translation>Standard&amp;werte</translation>
    </message>
    <message>
        <source> s</source>
        <comment>seconds</comment>
        <translation> s</translation>
    </message>
    <message>
        <source>%1 to %2 s</source>
        <translation>%1 bis %2 s</translation>
    </message>
    <message>
        <source>silence; 0 to %1</source>
        <translation>Stille; 0 bis %1</translation>
    </message>
    <message>
        <source>&amp;Average volume over:</source>
        <translation>&amp;Mittlere Lautstärke über:</translation>
    </message>
    <message>
        <source>The automatic threshold follows the volume of this span.</source>
        <translation>Die automatische Schwelle folgt der Lautstärke dieser Zeitspanne.</translation>
    </message>
    <message>
        <source>&amp;Tempo measured over:</source>
        <translation>&amp;Tempo gemessen über:</translation>
    </message>
    <message>
        <source>The beats of this span make the tempo: a long one is steady, a short one follows quickly.</source>
        <translation>Die Beats dieser Zeitspanne ergeben das Tempo: lang misst ruhig, kurz folgt schnell.</translation>
    </message>
    <message>
        <source>&amp;Stopped after:</source>
        <translation>&amp;Gestoppt nach:</translation>
    </message>
    <message>
        <source>When it has been quiet for so long, the music has stopped.</source>
        <translation>Ist es so lange still, gilt die Musik als gestoppt.</translation>
    </message>
    <message>
        <source>Sound up to this level counts as quiet.</source>
        <translation>Bis zu diesem Pegel gilt Ton als Stille.</translation>
    </message>
    <message>
        <source>All durations and levels as they were at first.</source>
        <translation>Setzt alle Zeiten und Pegel auf ihre Standardwerte.</translation>
    </message>
    <message>
        <source>%1 dBFS; 0 to %2</source>
        <translation>%1 dBFS; 0 bis %2</translation>
    </message>
</context>
<context>
    <name>InputDevicesModel</name>
    <message>
        <source>%1: records what this computer plays</source>
        <translation>%1: nimmt auf, was dieser Computer wiedergibt</translation>
    </message>
    <message>
        <source>absent</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>monitor</source>
        <translation>Monitor</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>device (its marks)</comment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>The system&apos;s default, whichever it is</source>
        <translation>Der Standard des Systems, welcher es auch ist</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>description, name</comment>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1, level %2 dB</source>
        <comment>device</comment>
        <translation>%1, Pegel %2 dB</translation>
    </message>
</context>
<context>
    <name>InputDevicesPanel</name>
    <message>
        <source>Audio inputs</source>
        <translation>Audioeingänge</translation>
    </message>
    <message>
        <source>Looks for inputs now. Where that takes long, it is not done by itself while sound is recorded.</source>
        <translation>Sucht jetzt nach Eingängen. Wo das lange dauert, geschieht es während der Aufnahme nicht von selbst.</translation>
    </message>
    <message>
        <source>The chosen input is absent; it is resumed when it returns</source>
        <translation>Der gewählte Eingang fehlt; sobald er wieder da ist, geht es weiter</translation>
    </message>
    <message>
        <source>No input found; connect one</source>
        <translation>Kein Eingang gefunden; bitte einen anschließen</translation>
    </message>
    <message>
        <source>Choose an input</source>
        <translation>Wählen Sie einen Eingang</translation>
    </message>
    <message numerus="yes">
        <source>%n input(s)</source>
        <translation>
            <numerusform>%n Eingang</numerusform>
            <numerusform>%n Eingänge</numerusform>
        </translation>
    </message>
    <message>
        <source>L&amp;ook again</source>
        <translation>&amp;Erneut suchen</translation>
    </message>
    <message>
        <source>No sound server answered at the start: these are the inputs that Qt finds by itself.</source>
        <translation>Beim Start antwortete kein Klangserver: dies sind die Eingänge, die Qt selbst findet.</translation>
    </message>
</context>
<context>
    <name>KeysPage</name>
    <message>
        <source>The keys</source>
        <translation>Die Tasten</translation>
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
        <translation>Impuls</translation>
    </message>
    <message>
        <source>Beat lamp</source>
        <translation>Beat-Lampe</translation>
    </message>
    <message>
        <source>Pulse lamp</source>
        <translation>Impulslampe</translation>
    </message>
    <message>
        <source>Flashes when a beat falls due. A ring only: the beat was not heard but predicted.</source>
        <translation>Blitzt, wenn ein Beat fällig ist. Nur ein Ring: Der Beat wurde nicht gehört, sondern erwartet.</translation>
    </message>
    <message>
        <source>Flashes when a pulse is heard. A ring only: a beat was missing and is assumed.</source>
        <translation>Blitzt, wenn ein Impuls gehört wird. Nur ein Ring: Ein Beat fehlte und wird angenommen.</translation>
    </message>
    <message>
        <source>virtual</source>
        <translation>virtuell</translation>
    </message>
    <message>
        <source>real</source>
        <translation>echt</translation>
    </message>
</context>
<context>
    <name>LevelPanel</name>
    <message>
        <source>&amp;Automatic threshold</source>
        <translation>A&amp;utomatische Schwelle</translation>
    </message>
    <message>
        <source>The threshold follows the average volume and the sensibility of the profile.</source>
        <translation>Die Schwelle folgt der mittleren Lautstärke und der Empfindlichkeit des Profils.</translation>
    </message>
    <message>
        <source>Threshold in dB below full scale</source>
        <translation>Schwelle in dB unter Vollaussteuerung</translation>
    </message>
    <message>
        <source>A block is a pulse when a quarter of its samples reach the threshold.</source>
        <translation>Ein Block ist ein Impuls, wenn ein Viertel seiner Samples die Schwelle erreicht.</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Aktuell</translation>
    </message>
    <message>
        <source>Average</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation>Schwelle</translation>
    </message>
    <message>
        <source>dBFS</source>
        <translation>dBFS</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Eingang</translation>
    </message>
    <message>
        <source>Level of the input</source>
        <translation>Pegel des Eingangs</translation>
    </message>
    <message>
        <source>The loudest samples as they come from the input.</source>
        <translation>Die lautesten Abtastwerte, wie sie vom Eingang kommen.</translation>
    </message>
    <message>
        <source>Band</source>
        <translation>Band</translation>
    </message>
    <message>
        <source>Volume of the band</source>
        <translation>Lautstärke des Bandes</translation>
    </message>
    <message>
        <source>What is left of the input in the band of the profile, in which pulses are looked for.</source>
        <translation>Was vom Eingang im Band des Profils bleibt, in dem Impulse gesucht werden.</translation>
    </message>
    <message>
        <source>Clipped</source>
        <translation>Übersteuert</translation>
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
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Listen to the input again</source>
        <translation>Wieder den &amp;Eingang hören</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Tempo</source>
        <translation>&amp;Tempo</translation>
    </message>
    <message>
        <source>&amp;Beat lamp</source>
        <translation>&amp;Beat-Lampe</translation>
    </message>
    <message>
        <source>P&amp;ulse lamp</source>
        <translation>&amp;Impulslampe</translation>
    </message>
    <message>
        <source>&amp;Spectrum</source>
        <translation>&amp;Spektrum</translation>
    </message>
    <message>
        <source>T&amp;hreshold</source>
        <translation>S&amp;chwelle</translation>
    </message>
    <message>
        <source>&amp;Input devices</source>
        <translation>&amp;Audioeingänge</translation>
    </message>
    <message>
        <source>&amp;Profiles</source>
        <translation>&amp;Profile</translation>
    </message>
    <message>
        <source>&amp;Manual beat</source>
        <translation>Beat von &amp;Hand</translation>
    </message>
    <message>
        <source>&amp;Durations</source>
        <translation>&amp;Zeiten</translation>
    </message>
    <message>
        <source>&amp;Advanced settings</source>
        <translation>&amp;Weitere Einstellungen</translation>
    </message>
    <message>
        <source>R&amp;eset button</source>
        <translation>Taste „Zu&amp;rücksetzen“</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About beat-monitor</source>
        <translation>Ü&amp;ber beat-monitor</translation>
    </message>
    <message>
        <source>Spectrum</source>
        <translation>Spektrum</translation>
    </message>
    <message>
        <source>Volume and threshold</source>
        <translation>Lautstärke und Schwelle</translation>
    </message>
    <message>
        <source>Reset (R)</source>
        <translation>Zurücksetzen (R)</translation>
    </message>
    <message>
        <source>Forgets the tempo and starts to search again.</source>
        <translation>Vergisst das Tempo und beginnt die Suche von vorn.</translation>
    </message>
    <message>
        <source>Open audio file</source>
        <translation>Audiodatei öffnen</translation>
    </message>
    <message>
        <source>Audio files (*.wav *.flac *.ogg *.opus *.mp3 *.aiff *.aif);;All files (*)</source>
        <translation>Audiodateien (*.wav *.flac *.ogg *.opus *.mp3 *.aiff *.aif);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>About beat-monitor</source>
        <translation>Über beat-monitor</translation>
    </message>
    <message>
        <source>&lt;b&gt;beat-monitor %1&lt;/b&gt;&lt;p&gt;Shows the beat and the tempo of live music.&lt;/p&gt;&lt;p&gt;MIT licence.&lt;/p&gt;</source>
        <translation>&lt;b&gt;beat-monitor %1&lt;/b&gt;&lt;p&gt;Zeigt Beat und Tempo von Livemusik.&lt;/p&gt;&lt;p&gt;MIT-Lizenz.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;Open audio file…</source>
        <translation>Audiodatei ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;Beat</source>
        <translation>&amp;Beat</translation>
    </message>
    <message>
        <source>The stage view only glows with the beat.</source>
        <translation>Die Bühnenansicht glimmt nur mit dem Beat.</translation>
    </message>
    <message>
        <source>At most three &amp;flashes a second</source>
        <translation>Höchstens drei Blitze pro Sekun&amp;de</translation>
    </message>
    <message>
        <source>High &amp;contrast</source>
        <translation>Hoher &amp;Kontrast</translation>
    </message>
    <message>
        <source>No input</source>
        <translation>Kein Eingang</translation>
    </message>
    <message>
        <source>Last two mi&amp;nutes</source>
        <translation>&amp;Letzte zwei Minuten</translation>
    </message>
    <message>
        <source>Last two minutes</source>
        <translation>Letzte zwei Minuten</translation>
    </message>
    <message>
        <source>&amp;Save what happened…</source>
        <translation>&amp;Speichern, was geschah …</translation>
    </message>
    <message>
        <source>Save what happened</source>
        <translation>Speichern, was geschah</translation>
    </message>
    <message>
        <source>Zip files (*.zip);;All files (*)</source>
        <translation>ZIP-Dateien (*.zip);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>&amp;Outputs</source>
        <translation>Aus&amp;gänge</translation>
    </message>
    <message>
        <source>Soft f&amp;lash</source>
        <translation>Sanfter &amp;Blitz</translation>
    </message>
</context>
<context>
    <name>ManualBeatPanel</name>
    <message>
        <source>Manual beat</source>
        <translation>Beat von Hand</translation>
    </message>
    <message>
        <source>Tap (T)</source>
        <translation>Tippen (T)</translation>
    </message>
    <message>
        <source>Tap with the beat: here, or with the key T.</source>
        <translation>Tippen Sie im Takt: hier oder mit der Taste T.</translation>
    </message>
    <message>
        <source>&amp;Round</source>
        <translation>&amp;Runden</translation>
    </message>
    <message>
        <source>%1 BPM</source>
        <translation>%1 BPM</translation>
    </message>
    <message>
        <source>Tap with the beat</source>
        <translation>Im Takt tippen</translation>
    </message>
    <message>
        <source>Ha&amp;lf</source>
        <translation>Ha&amp;lb</translation>
    </message>
    <message>
        <source>Dou&amp;ble</source>
        <translation>D&amp;oppelt</translation>
    </message>
    <message>
        <source>Half the tempo, at once: here, or with the arrow down.</source>
        <translation>Das halbe Tempo, sofort: hier oder mit dem Pfeil nach unten.</translation>
    </message>
    <message>
        <source>Twice the tempo, at once: here, or with the arrow up.</source>
        <translation>Das doppelte Tempo, sofort: hier oder mit dem Pfeil nach oben.</translation>
    </message>
    <message>
        <source>The nearest whole tempo: here, or with the key Y.</source>
        <translation>Das nächste ganze Tempo: hier oder mit der Taste Y.</translation>
    </message>
    <message>
        <source>Keeps this tempo until it is released, whatever the music does: here, or with the key H.</source>
        <translation>Hält dieses Tempo, bis es freigegeben wird, was auch immer die Musik tut: hier oder mit der Taste H.</translation>
    </message>
    <message>
        <source>The one (Space)</source>
        <translation>Die Eins (Leertaste)</translation>
    </message>
    <message>
        <source>The beat of now is the first of the bar: here, or with the space bar.</source>
        <translation>Der Beat von jetzt ist der erste des Takts: hier oder mit der Leertaste.</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <source>All beats that are shown and sent fall later by so much, or earlier when it is negative.</source>
        <translation>Alle Beats, die gezeigt und gesendet werden, fallen um so viel später, oder früher, wenn es negativ ist.</translation>
    </message>
    <message>
        <source>Tempo of the beats</source>
        <translation>Tempo der Beats</translation>
    </message>
    <message>
        <source>Lo&amp;cked (H)</source>
        <translation>Festge&amp;halten (H)</translation>
    </message>
    <message>
        <source>Lo&amp;ck (H)</source>
        <translation>Fest&amp;halten (H)</translation>
    </message>
    <message>
        <source>Held until released</source>
        <translation>Gehalten bis zur Freigabe</translation>
    </message>
    <message>
        <source>The hand leads</source>
        <translation>Die Hand führt</translation>
    </message>
    <message>
        <source>The music leads, at %1/%2 of its tempo</source>
        <translation>Die Musik führt, mit %1/%2 ihres Tempos</translation>
    </message>
    <message>
        <source>The music leads</source>
        <translation>Die Musik führt</translation>
    </message>
    <message>
        <source>Shift the beats by:</source>
        <translation>Beats verschieben um:</translation>
    </message>
    <message>
        <source>Shift of the beats</source>
        <translation>Verschiebung der Beats</translation>
    </message>
</context>
<context>
    <name>MomentFile</name>
    <message>
        <source>“%1” cannot be written: %2</source>
        <translation>„%1“ kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>sound.flac        the sound, as it was kept
</source>
        <translation>sound.flac        der Ton, soweit er aufgehoben war
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
        <translation>Was beat-monitor %1 in den letzten zwei Minuten sah.

strip.png         der Streifen: was gemeldet wurde, Beats, Pegel, Tempo
strip.json        dasselbe als Zahlen; Zeiten sind Sekunden vor dem Speichern
log.txt           was gemeldet wurde, mit der Uhrzeit
settings.json     die Einstellungen der Analyse
AudioAnalyzer.ini Fenster und Ausgänge, ohne Geheimnisse
%2</translation>
    </message>
</context>
<context>
    <name>MonitorSession</name>
    <message>
        <source>The choice of the beats cannot be stored in %1.</source>
        <translation>Die Wahl der Beats lässt sich nicht in %1 speichern.</translation>
    </message>
</context>
<context>
    <name>OscExpressionParser</name>
    <message>
        <source>it is too long</source>
        <translation>es ist zu lang</translation>
    </message>
    <message>
        <source>unexpected &quot;%1&quot;</source>
        <translation>„%1“ ist hier nicht erwartet</translation>
    </message>
    <message>
        <source>it is nested too deep</source>
        <translation>es ist zu tief verschachtelt</translation>
    </message>
    <message>
        <source>it ends too early</source>
        <translation>es endet zu früh</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not known</source>
        <translation>„%1“ ist nicht bekannt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is missing</source>
        <translation>„%1“ fehlt</translation>
    </message>
</context>
<context>
    <name>OutputEditor</name>
    <message>
        <source>May stay empty.</source>
        <translation>Darf leer bleiben.</translation>
    </message>
    <message>
        <source>This kind has none.</source>
        <translation>Diese Art hat keine.</translation>
    </message>
    <message>
        <source>New output</source>
        <translation>Neuer Ausgang</translation>
    </message>
    <message>
        <source>Output “%1”</source>
        <translation>Ausgang „%1“</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation>A&amp;rt:</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>A&amp;dresse:</translation>
    </message>
    <message>
        <source>&amp;Preset:</source>
        <translation>&amp;Vorlage:</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>A&amp;bbrechen</translation>
    </message>
</context>
<context>
    <name>OutputSettings</name>
    <message>
        <source>%1: output %2 is left out: %3</source>
        <translation>%1: Ausgang %2 wird ausgelassen: %3</translation>
    </message>
    <message>
        <source>%1: only the first %2 outputs count</source>
        <translation>%1: Nur die ersten %2 Ausgänge zählen</translation>
    </message>
    <message>
        <source>there are %1 outputs already</source>
        <translation>es gibt schon %1 Ausgänge</translation>
    </message>
    <message>
        <source>there is no output &quot;%1&quot;</source>
        <translation>es gibt keinen Ausgang „%1“</translation>
    </message>
    <message>
        <source>its name must have 1 to %1 letters</source>
        <translation>der Name muss 1 bis %1 Buchstaben haben</translation>
    </message>
    <message>
        <source>there is an output &quot;%1&quot; already</source>
        <translation>es gibt schon einen Ausgang „%1“</translation>
    </message>
    <message>
        <source>it has no kind</source>
        <translation>er hat keine Art</translation>
    </message>
    <message>
        <source>its kind, address or preset is too long, or no text</source>
        <translation>Art, Adresse oder Vorlage ist zu lang oder kein Text</translation>
    </message>
    <message>
        <source>its offset must be %1 to %2 ms</source>
        <translation>der Versatz muss %1 bis %2 ms sein</translation>
    </message>
</context>
<context>
    <name>OutputStore</name>
    <message>
        <source>The outputs cannot be stored in %1.</source>
        <translation>Die Ausgänge können nicht in %1 gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>OutputTrial</name>
    <message>
        <source>it was lost</source>
        <translation>er ging verloren</translation>
    </message>
    <message>
        <source>%1 beats were sent</source>
        <translation>%1 Beats wurden gesendet</translation>
    </message>
    <message>
        <source>it was not reached</source>
        <translation>er wurde nicht erreicht</translation>
    </message>
</context>
<context>
    <name>OutputsModel</name>
    <message>
        <source>reached</source>
        <translation>erreicht</translation>
    </message>
    <message>
        <source>away</source>
        <translation>nicht da</translation>
    </message>
    <message>
        <source>cannot be used</source>
        <translation>nicht nutzbar</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>output: its state</comment>
        <translation>%1: %2</translation>
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
        <translation>Er wird gesucht.</translation>
    </message>
    <message>
        <source>All outputs are off: the key O switches them on.</source>
        <translation>Alle Ausgänge sind aus: Die Taste O schaltet sie ein.</translation>
    </message>
    <message>
        <source>Not enabled: nothing is sent to it.</source>
        <translation>Nicht angekreuzt: Es wird nichts dorthin gesendet.</translation>
    </message>
    <message>
        <source>Two bars at 120 BPM: %1.</source>
        <translation>Zwei Takte mit 120 BPM: %1.</translation>
    </message>
    <message>
        <source>The test has failed: %1.</source>
        <translation>Der Test ist gescheitert: %1.</translation>
    </message>
    <message>
        <source>The test is over, %1: %2.</source>
        <translation>Der Test ist vorbei, %1: %2.</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Ausgänge</translation>
    </message>
    <message>
        <source>What is checked gets the beats. Enter checks, Ins adds, F2 changes, Del removes.</source>
        <translation>Was angekreuzt ist, bekommt die Beats. Eingabe kreuzt an, Einfg fügt hinzu, F2 ändert, Entf entfernt.</translation>
    </message>
    <message>
        <source>&amp;Add…</source>
        <translation>Hinz&amp;ufügen…</translation>
    </message>
    <message>
        <source>C&amp;hange…</source>
        <translation>Än&amp;dern…</translation>
    </message>
    <message>
        <source>Change name, kind, address and preset.</source>
        <translation>Name, Art, Adresse und Vorlage ändern.</translation>
    </message>
    <message>
        <source>Remo&amp;ve</source>
        <translation>Ent&amp;fernen</translation>
    </message>
    <message>
        <source>Send nothing to it any more, and forget it.</source>
        <translation>Nichts mehr dorthin senden und ihn vergessen.</translation>
    </message>
    <message>
        <source>Test no&amp;w</source>
        <translation>&amp;Jetzt testen</translation>
    </message>
    <message>
        <source>Sends two bars at 120 BPM, without any music.</source>
        <translation>Sendet zwei Takte mit 120 BPM, ganz ohne Musik.</translation>
    </message>
    <message>
        <source>O&amp;ffset:</source>
        <translation>Vers&amp;atz:</translation>
    </message>
    <message>
        <source>By how much its beats come later, or earlier to the left. At once.</source>
        <translation>Um wie viel seine Beats später kommen, nach links früher. Sofort.</translation>
    </message>
    <message>
        <source>Offset of the output</source>
        <translation>Versatz des Ausgangs</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <source>None yet.</source>
        <translation>Noch keine.</translation>
    </message>
    <message>
        <source>Lights, visuals or an instrument that follow the beat.</source>
        <translation>Licht, Bilder oder ein Instrument, die dem Beat folgen.</translation>
    </message>
</context>
<context>
    <name>ProfileCheck</name>
    <message>
        <source>Give the profile a name.</source>
        <translation>Geben Sie dem Profil einen Namen.</translation>
    </message>
    <message numerus="yes">
        <source>The name has %n character(s) too many.</source>
        <translation>
            <numerusform>Der Name ist um %n Zeichen zu lang.</numerusform>
            <numerusform>Der Name ist um %n Zeichen zu lang.</numerusform>
        </translation>
    </message>
    <message>
        <source>There is a profile “%1” already; choose another name.</source>
        <translation>Es gibt schon ein Profil „%1“; wählen Sie einen anderen Namen.</translation>
    </message>
    <message>
        <source>The lowest tempo must be at least 1 BPM.</source>
        <translation>Das langsamste Tempo muss mindestens 1 BPM betragen.</translation>
    </message>
    <message>
        <source>The highest tempo must be at most %1 BPM.</source>
        <translation>Das schnellste Tempo darf höchstens %1 BPM betragen.</translation>
    </message>
    <message>
        <source>The lowest tempo must not be above the highest.</source>
        <translation>Das langsamste Tempo darf nicht über dem schnellsten liegen.</translation>
    </message>
    <message>
        <source>The lower edge must not be above the upper edge.</source>
        <translation>Die untere Grenze darf nicht über der oberen liegen.</translation>
    </message>
    <message>
        <source>The sensibility must be 0 or more.</source>
        <translation>Die Empfindlichkeit muss 0 oder mehr sein.</translation>
    </message>
</context>
<context>
    <name>ProfileEditor</name>
    <message>
        <source>Lowest and highest tempo to look for, 1 to %1 BPM</source>
        <translation>Langsamstes und schnellstes Tempo, nach dem gesucht wird, 1 bis %1 BPM</translation>
    </message>
    <message>
        <source>Lower and upper edge of the band to listen to</source>
        <translation>Untere und obere Grenze des Bands, auf das gehört wird</translation>
    </message>
    <message>
        <source>A pulse is that many times louder than the average; 0 or more</source>
        <translation>So viel Mal lauter als der Durchschnitt ist ein Impuls; 0 oder mehr</translation>
    </message>
    <message>
        <source>A name of your choice</source>
        <translation>Ein Name Ihrer Wahl</translation>
    </message>
    <message>
        <source>New profile</source>
        <translation>Neues Profil</translation>
    </message>
    <message>
        <source>Profile “%1”</source>
        <translation>Profil „%1“</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;Tempo:</source>
        <translation>&amp;Tempo:</translation>
    </message>
    <message>
        <source>&amp;Band:</source>
        <translation>&amp;Band:</translation>
    </message>
    <message>
        <source>&amp;Sensibility:</source>
        <translation>&amp;Empfindlichkeit:</translation>
    </message>
    <message>
        <source>Lowest tempo</source>
        <translation>Langsamstes Tempo</translation>
    </message>
    <message>
        <source>Highest tempo</source>
        <translation>Schnellstes Tempo</translation>
    </message>
    <message>
        <source>Lower edge of the band</source>
        <translation>Untere Grenze des Bands</translation>
    </message>
    <message>
        <source>Upper edge of the band</source>
        <translation>Obere Grenze des Bands</translation>
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
        <translation>offen</translation>
    </message>
    <message>
        <source>This profile is built in: changes last until the program ends. To keep them, save them as a new profile under a name of its own.</source>
        <translation>Dieses Profil ist eingebaut: Änderungen gelten bis zum Programmende. Um sie zu behalten, speichern Sie sie als neues Profil unter eigenem Namen.</translation>
    </message>
    <message>
        <source>&amp;Use until exit</source>
        <translation>Bis zum Ende &amp;verwenden</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Save as ne&amp;w</source>
        <translation>Als neues &amp;Profil speichern</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>ProfilesModel</name>
    <message>
        <source>%1 (%2 to %3 BPM)</source>
        <comment>name (tempo range)</comment>
        <translation>%1 (%2 bis %3 BPM)</translation>
    </message>
    <message>
        <source>%1, changed until exit</source>
        <translation>%1, geändert bis zum Programmende</translation>
    </message>
</context>
<context>
    <name>ProfilesPanel</name>
    <message>
        <source>%1 (copy)</source>
        <translation>%1 (Kopie)</translation>
    </message>
    <message>
        <source>%1 (copy %2)</source>
        <translation>%1 (Kopie %2)</translation>
    </message>
    <message>
        <source>Profiles</source>
        <translation>Profile</translation>
    </message>
    <message>
        <source>Make a new profile.</source>
        <translation>Ein neues Profil anlegen.</translation>
    </message>
    <message>
        <source>D&amp;uplicate</source>
        <translation>Du&amp;plizieren</translation>
    </message>
    <message>
        <source>Make a profile of your own from this one.</source>
        <translation>Aus diesem ein eigenes Profil machen.</translation>
    </message>
    <message>
        <source>&amp;Edit…</source>
        <translation>&amp;Bearbeiten…</translation>
    </message>
    <message>
        <source>Change name, tempo range, band and sensibility (F2).</source>
        <translation>Name, Tempobereich, Band und Empfindlichkeit ändern (F2).</translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation>En&amp;tfernen</translation>
    </message>
    <message>
        <source>Br&amp;ing back</source>
        <translation>&amp;Zurückholen</translation>
    </message>
    <message>
        <source>Your own profile; it is saved with the settings.</source>
        <translation>Ihr eigenes Profil; es wird mit den Einstellungen gespeichert.</translation>
    </message>
    <message>
        <source>Built in: changes last until the program ends. To keep them, duplicate it.</source>
        <translation>Eingebaut: Änderungen gelten bis zum Programmende. Um sie zu behalten, duplizieren Sie es.</translation>
    </message>
    <message>
        <source>%1, sensibility %2. %3</source>
        <comment>band, sensibility. kind of profile</comment>
        <translation>%1, Empfindlichkeit %2. %3</translation>
    </message>
    <message>
        <source>Remove this profile (Del).</source>
        <translation>Dieses Profil entfernen (Entf).</translation>
    </message>
    <message>
        <source>A built-in profile cannot be removed.</source>
        <translation>Ein eingebautes Profil lässt sich nicht entfernen.</translation>
    </message>
    <message>
        <source>“%1” is removed.</source>
        <translation>„%1“ ist entfernt.</translation>
    </message>
    <message>
        <source>All frequencies</source>
        <translation>Alle Frequenzen</translation>
    </message>
    <message>
        <source>Up to %1 Hz</source>
        <translation>Bis %1 Hz</translation>
    </message>
    <message>
        <source>From %1 Hz</source>
        <translation>Ab %1 Hz</translation>
    </message>
    <message>
        <source>%1 to %2 Hz</source>
        <translation>%1 bis %2 Hz</translation>
    </message>
    <message>
        <source>A&amp;dd…</source>
        <translation>&amp;Neu…</translation>
    </message>
    <message>
        <source>Automatic: follows any music by itself</source>
        <translation>Automatisch: folgt jeder Musik von selbst</translation>
    </message>
    <message>
        <source>Or choose a profile for the tempo range and band of your music.</source>
        <translation>Oder ein Profil für Tempobereich und Band Ihrer Musik wählen.</translation>
    </message>
</context>
<context>
    <name>SaveDialog</name>
    <message>
        <source>with &amp;sound</source>
        <translation>mit &amp;Ton</translation>
    </message>
    <message>
        <source>Save what happened</source>
        <translation>Speichern, was geschah</translation>
    </message>
    <message>
        <source>One zip file with the last two minutes as a picture and as numbers, what was said, and the settings.</source>
        <translation>Eine ZIP-Datei mit den letzten zwei Minuten als Bild und als Zahlen, dem, was gemeldet wurde, und den Einstellungen.</translation>
    </message>
    <message>
        <source>Sa&amp;ve…</source>
        <translation>Spei&amp;chern …</translation>
    </message>
    <message>
        <source>%1 s of sound are kept by now, in memory alone; two minutes at most, until this is switched off.</source>
        <translation>%1 s Ton sind bisher aufgehoben, nur im Speicher; höchstens zwei Minuten, bis dies abgeschaltet wird.</translation>
    </message>
    <message>
        <source>No sound is kept. Tick it, and from then on the last two minutes are.</source>
        <translation>Kein Ton wird aufgehoben. Ist dies angekreuzt, werden es von da an die letzten zwei Minuten.</translation>
    </message>
</context>
<context>
    <name>SourceTexts</name>
    <message>
        <source>No data comes from “%1”. Check that nothing else holds it.</source>
        <translation>Von „%1“ kommen keine Daten. Prüfen Sie, ob etwas anderes den Eingang belegt.</translation>
    </message>
    <message>
        <source>Nothing but silence from “%1”. Start the music or unmute the input.</source>
        <translation>Nur Stille von „%1“. Starten Sie die Musik oder heben Sie die Stummschaltung auf.</translation>
    </message>
    <message>
        <source>Too quiet to count as music. Turn the input up, or lower the stop threshold.</source>
        <translation>Zu leise, um als Musik zu gelten. Drehen Sie den Eingang auf oder senken Sie die Stille-Schwelle.</translation>
    </message>
    <message>
        <source>Clipped: the level is cut off at full scale. Turn the input down.</source>
        <translation>Übersteuert: Der Pegel ist bei Vollaussteuerung abgeschnitten. Drehen Sie den Eingang herunter.</translation>
    </message>
    <message>
        <source>“%1” offers no format that can be analysed. Choose another input.</source>
        <translation>„%1“ bietet kein Format, das sich analysieren lässt. Wählen Sie einen anderen Eingang.</translation>
    </message>
    <message>
        <source>“%1” delivers %2 channels only; a mono input or a monitor is needed.</source>
        <translation>„%1“ liefert nur %2 Kanäle; nötig ist ein Mono-Eingang oder ein Monitor.</translation>
    </message>
    <message>
        <source>Waiting for “%1”; it resumes as soon as the device is there.</source>
        <translation>Wartet auf „%1“; es geht weiter, sobald das Gerät da ist.</translation>
    </message>
    <message>
        <source>Opening “%1” …</source>
        <translation>„%1“ wird geöffnet …</translation>
    </message>
    <message>
        <source>Listening to “%1”</source>
        <translation>Hört „%1“</translation>
    </message>
    <message>
        <source>Listening to “%1”: no music</source>
        <translation>Hört „%1“: keine Musik</translation>
    </message>
    <message>
        <source>No input device. Plug one in, start a sound server, or drop an audio file here.</source>
        <translation>Kein Eingang. Schließen Sie einen an, starten Sie einen Soundserver oder ziehen Sie eine Audiodatei hierher.</translation>
    </message>
    <message>
        <source>“%1” has ended</source>
        <translation>„%1“ ist zu Ende</translation>
    </message>
    <message>
        <source>“%1”: %2</source>
        <translation>„%1“: %2</translation>
    </message>
    <message>
        <source>Playing “%1”</source>
        <translation>„%1“ wird abgespielt</translation>
    </message>
    <message>
        <source>Playing “%1” without sound: %2</source>
        <translation>„%1“ wird ohne Ton abgespielt: %2</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>there is no output</source>
        <translation>es gibt keinen Ausgang</translation>
    </message>
    <message>
        <source>the output takes no sound</source>
        <translation>der Ausgang nimmt keinen Ton an</translation>
    </message>
    <message>
        <source>no sound server answers</source>
        <translation>kein Soundserver antwortet</translation>
    </message>
    <message>
        <source>muted</source>
        <translation>stumm geschaltet</translation>
    </message>
    <message>
        <source>Play music: the tempo comes by itself. “%1” is listened to.</source>
        <translation>Spielen Sie Musik: Das Tempo kommt von selbst. Gehört wird „%1“.</translation>
    </message>
</context>
<context>
    <name>SpeakersPanel</name>
    <message>
        <source>Speakers that pump with the beat</source>
        <translation>Lautsprecher, die im Takt pumpen</translation>
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
        <translation>Amplitudenspektrum</translation>
    </message>
    <message>
        <source>The loudest bin so far is 0 dB. Shaded: the band of the selected profile, in which pulses are looked for.</source>
        <translation>0 dB ist der bisher lauteste Wert. Getönt: das Band des gewählten Profils, in dem nach Impulsen gesucht wird.</translation>
    </message>
</context>
<context>
    <name>StageView</name>
    <message>
        <source>Stage view</source>
        <translation>Bühnenansicht</translation>
    </message>
    <message>
        <source>Held</source>
        <translation>Gehalten</translation>
    </message>
    <message>
        <source>Hand</source>
        <translation>Hand</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>No beat</source>
        <translation>Kein Beat</translation>
    </message>
</context>
<context>
    <name>StripCanvas</name>
    <message>
        <source>The last two minutes</source>
        <translation>Die letzten zwei Minuten</translation>
    </message>
    <message>
        <source>%1 s ago</source>
        <translation>vor %1 s</translation>
    </message>
    <message>
        <source>now</source>
        <translation>jetzt</translation>
    </message>
    <message>
        <source>Level %1 dB</source>
        <translation>Pegel %1 dB</translation>
    </message>
    <message>
        <source>%1 BPM</source>
        <translation>%1 BPM</translation>
    </message>
    <message>
        <source>No music</source>
        <translation>Keine Musik</translation>
    </message>
</context>
<context>
    <name>StripPanel</name>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Holds the picture still (P)</source>
        <translation>Hält das Bild an (P)</translation>
    </message>
    <message>
        <source>Nearer</source>
        <translation>Näher</translation>
    </message>
    <message>
        <source>Shows less time (+, or the mouse wheel)</source>
        <translation>Zeigt weniger Zeit (+ oder das Mausrad)</translation>
    </message>
    <message>
        <source>Farther</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Shows more time (−, or the mouse wheel)</source>
        <translation>Zeigt mehr Zeit (− oder das Mausrad)</translation>
    </message>
</context>
<context>
    <name>Tray</name>
    <message>
        <source>&amp;Hide window</source>
        <translation>Fenster &amp;verbergen</translation>
    </message>
    <message>
        <source>&amp;Show window</source>
        <translation>Fenster &amp;zeigen</translation>
    </message>
</context>
<context>
    <name>ZipWriter</name>
    <message>
        <source>it cannot be written</source>
        <translation>sie kann nicht geschrieben werden</translation>
    </message>
</context>
<context>
    <name>shared</name>
    <message>
        <source>&quot;%1&quot;: give %2, or nothing</source>
        <translation>„%1“: Geben Sie %2 an, oder nichts</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: give some of beat 0 to 127 or none, bar 0 to 127 or none, channel 1 to 16, velocity 1 to 127, length 1 to 24, with commas between them</source>
        <translation>„%1“: Geben Sie einiges von beat 0 bis 127 oder none, bar 0 bis 127 oder none, channel 1 bis 16, velocity 1 bis 127, length 1 bis 24 an, mit Kommas dazwischen</translation>
    </message>
    <message>
        <source>send MIDI clock; without PORT at a port of its own</source>
        <translation>sendet MIDI-Clock; ohne PORT an einem eigenen Anschluss</translation>
    </message>
    <message>
        <source>with always the clock also ticks while the music stands</source>
        <translation>mit always läuft die Clock auch, während die Musik steht</translation>
    </message>
    <message>
        <source>the instrument starts, plays two bars, shows 120 BPM and stops</source>
        <translation>das Instrument startet, spielt zwei Takte, zeigt 120 BPM und hält an</translation>
    </message>
    <message>
        <source>play notes on beats and bars; without PORT at a port of its own</source>
        <translation>spielt Noten auf Beats und Takte; ohne PORT an einem eigenen Anschluss</translation>
    </message>
    <message>
        <source>NOTES like &quot;beat 36, bar 38, channel 10, velocity 100, length 6&quot;;
none for no note, length in 24ths of a beat</source>
        <translation>NOTES wie „beat 36, bar 38, channel 10, velocity 100, length 6“;
none für keine Note, length in 24steln eines Beats</translation>
    </message>
    <message>
        <source>eight notes, half a second apart, and another one with the first and the fifth</source>
        <translation>acht Noten im Abstand einer halben Sekunde, und eine andere mit der ersten und der fünften</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: give HOST or HOST:PORT, or nothing for all in the net</source>
        <translation>„%1“: Geben Sie HOST oder HOST:PORT an, oder nichts für alle im Netz</translation>
    </message>
    <message>
        <source>send beats to light programs by OS2L; to all of them without HOST</source>
        <translation>sendet Beats über OS2L an Lichtprogramme; ohne HOST an alle</translation>
    </message>
    <message>
        <source>the light program gets eight beats; what it has learned from the OS2L beat switches on each, half a second apart</source>
        <translation>das Lichtprogramm bekommt acht Beats; was es vom OS2L-Beat gelernt hat, schaltet bei jedem, im Abstand einer halben Sekunde</translation>
    </message>
    <message>
        <source>send beats as Open Sound Control</source>
        <translation>sendet Beats als Open Sound Control</translation>
    </message>
    <message>
        <source>PRESET is one of %1,
or messages of your own</source>
        <translation>Die Vorlage ist eine von %1
oder eigene Nachrichten</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: give HOST:PORT[/PRESET], or tcp:HOST:PORT[/PRESET]</source>
        <translation>„%1“: Geben Sie HOST:PORT[/PRESET] an, oder tcp:HOST:PORT[/PRESET]</translation>
    </message>
    <message>
        <source>messages of your own</source>
        <translation>eigene Nachrichten</translation>
    </message>
    <message>
        <source>Resolume&apos;s tempo goes to 120 BPM, and its beat to the one twice</source>
        <translation>Resolumes Tempo geht auf 120 BPM und sein Beat zweimal auf die Eins</translation>
    </message>
    <message>
        <source>Chromatik&apos;s tempo goes to 120 BPM, and its beat counts 1 2 3 4 twice</source>
        <translation>Chromatiks Tempo geht auf 120 BPM, und sein Beat zählt zweimal 1 2 3 4</translation>
    </message>
    <message>
        <source>the fader of executor 201 goes to 70.7 %, which is 120 BPM</source>
        <translation>der Regler von Executor 201 geht auf 70.7 %, das sind 120 BPM</translation>
    </message>
    <message>
        <source>the tempo shown goes to 120 BPM</source>
        <translation>das angezeigte Tempo geht auf 120 BPM</translation>
    </message>
    <message>
        <source>an OSC In CHOP gets the channels bpm, beat, count, bar, confidence, phase and playing</source>
        <translation>ein OSC In CHOP bekommt die Kanäle bpm, beat, count, bar, confidence, phase und playing</translation>
    </message>
    <message>
        <source>the OSC signal blinks in QLC+&apos;s input tab, and a button that learned /beat goes on and off eight times</source>
        <translation>im Eingangsreiter von QLC+ blinkt das OSC-Signal, und ein Knopf, der /beat gelernt hat, geht achtmal an und aus</translation>
    </message>
    <message>
        <source>the receiver gets /playing 1, eight times /beat, twice /tempo and /bar, and /playing 0</source>
        <translation>der Empfänger bekommt /playing 1, achtmal /beat, zweimal /tempo und /bar, und /playing 0</translation>
    </message>
    <message>
        <source>the receiver gets your messages for eight beats and two bars</source>
        <translation>der Empfänger bekommt Ihre Nachrichten für acht Beats und zwei Takte</translation>
    </message>
    <message>
        <source>%1: give its address</source>
        <translation>%1: Geben Sie die Adresse an</translation>
    </message>
    <message>
        <source>there is no kind of output &quot;%1&quot;; there are: %2</source>
        <translation>es gibt keine Art von Ausgang „%1“; es gibt: %2</translation>
    </message>
    <message>
        <source>send sound and beats to WLED; without HOST to all in the net</source>
        <translation>sendet Klang und Beats an WLED; ohne HOST an alle im Netz</translation>
    </message>
    <message>
        <source>with an effect that shows peaks, Ripple Peak for one, the LEDs answer eight times; there is no sound in the test</source>
        <translation>mit einem Effekt, der Spitzen zeigt, etwa Ripple Peak, antworten die LEDs achtmal; im Test ist kein Klang</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: give a preset, or begin with beat, bar, tempo, playing or tickN</source>
        <translation>„%1“: Geben Sie eine Vorlage an, oder beginnen Sie mit beat, bar, tempo, playing oder tickN</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: the address must begin with / and have no blanks or # * , ? [ ] { }</source>
        <translation>„%1“: Die Adresse muss mit / beginnen und darf weder Leerzeichen noch # * , ? [ ] { } enthalten</translation>
    </message>
    <message>
        <source>%1: give a type for each value, at most %2 of i, f, d and h</source>
        <translation>%1: Geben Sie für jeden Wert einen Typ an, höchstens %2 aus i, f, d und h</translation>
    </message>
    <message>
        <source>%1: give as many values as types, with commas between them</source>
        <translation>%1: Geben Sie so viele Werte wie Typen an, mit Kommas dazwischen</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot;: %3</source>
        <translation>%1: „%2“: %3</translation>
    </message>
</context>
<context>
    <name>shared::AlsaMidiPort</name>
    <message>
        <source>there is no ALSA sequencer: is the module snd-seq loaded?</source>
        <translation>es gibt keinen ALSA-Sequencer: Ist das Modul snd-seq geladen?</translation>
    </message>
    <message>
        <source>ALSA port %1</source>
        <translation>ALSA-Anschluss %1</translation>
    </message>
    <message>
        <source>no ALSA port is named %1</source>
        <translation>kein ALSA-Anschluss heißt %1</translation>
    </message>
</context>
<context>
    <name>shared::ChoicesTurn</name>
    <message>
        <source>%1 is being changed by another program, which does not finish; end that program and try again</source>
        <translation>%1 wird von einem anderen Programm geändert, das nicht fertig wird; beenden Sie es und versuchen Sie es noch einmal</translation>
    </message>
</context>
<context>
    <name>shared::JackMidiPort</name>
    <message>
        <source>no JACK server runs</source>
        <translation>es läuft kein JACK-Server</translation>
    </message>
    <message>
        <source>the JACK server refuses a port</source>
        <translation>der JACK-Server verweigert einen Anschluss</translation>
    </message>
    <message>
        <source>JACK port %1</source>
        <translation>JACK-Anschluss %1</translation>
    </message>
    <message>
        <source>no JACK port is named %1</source>
        <translation>kein JACK-Anschluss heißt %1</translation>
    </message>
    <message>
        <source>the JACK server has gone</source>
        <translation>der JACK-Server ist verschwunden</translation>
    </message>
    <message>
        <source>the JACK server hangs</source>
        <translation>der JACK-Server hängt</translation>
    </message>
    <message>
        <source>the JACK port %1 has gone</source>
        <translation>der JACK-Anschluss %1 ist verschwunden</translation>
    </message>
</context>
<context>
    <name>shared::Os2lReceiver</name>
    <message>
        <source>light program %1</source>
        <translation>Lichtprogramm %1</translation>
    </message>
    <message>
        <source>no light program at %1: is OS2L on there, and the port right?</source>
        <translation>kein Lichtprogramm unter %1: Ist OS2L dort an, und stimmt der Anschluss?</translation>
    </message>
    <message>
        <source>cannot look for light programs: start avahi-daemon, or give HOST:PORT</source>
        <translation>Lichtprogramme können nicht gesucht werden: Starten Sie avahi-daemon, oder geben Sie HOST:PORT an</translation>
    </message>
    <message>
        <source>no light program makes itself known in the net, as _os2l._tcp</source>
        <translation>kein Lichtprogramm gibt sich im Netz als _os2l._tcp bekannt</translation>
    </message>
</context>
<context>
    <name>shared::OscReceiver</name>
    <message>
        <source>OSC to %1 (%2)</source>
        <translation>OSC an %1 (%2)</translation>
    </message>
    <message>
        <source>OSC to %1 (%2): %3; trying again</source>
        <translation>OSC an %1 (%2): %3; wird wieder versucht</translation>
    </message>
    <message>
        <source>OSC to %1 (%2): nothing listens there; going on</source>
        <translation>OSC an %1 (%2): dort hört niemand zu; es geht weiter</translation>
    </message>
    <message>
        <source>sending OSC to %1 (%2), %3</source>
        <translation>sendet OSC an %1 (%2), %3</translation>
    </message>
</context>
<context>
    <name>shared::OscSocket</name>
    <message>
        <source>there is no host &quot;%1&quot;</source>
        <translation>es gibt keinen Rechner „%1“</translation>
    </message>
    <message>
        <source>the host&apos;s name cannot be resolved</source>
        <translation>der Name des Rechners lässt sich nicht auflösen</translation>
    </message>
    <message>
        <source>nothing listens there</source>
        <translation>dort hört niemand zu</translation>
    </message>
    <message>
        <source>nobody answers</source>
        <translation>niemand antwortet</translation>
    </message>
    <message>
        <source>the connection is lost</source>
        <translation>die Verbindung ist verloren</translation>
    </message>
    <message>
        <source>it takes nothing</source>
        <translation>es nimmt nichts an</translation>
    </message>
    <message>
        <source>the connection is closed</source>
        <translation>die Verbindung ist geschlossen</translation>
    </message>
</context>
<context>
    <name>shared::OscTemplate</name>
    <message>
        <source>the messages are too long</source>
        <translation>die Nachrichten sind zu lang</translation>
    </message>
    <message>
        <source>give 1 to %1 messages</source>
        <translation>geben Sie 1 bis %1 Nachrichten an</translation>
    </message>
    <message>
        <source>the numbers of ticks a beat have no common multiple up to %1</source>
        <translation>die Zahlen der Ticks pro Beat haben kein gemeinsames Vielfaches bis %1</translation>
    </message>
</context>
<context>
    <name>shared::WledReceiver</name>
    <message>
        <source>%1 is no address that this machine can reach</source>
        <translation>%1 ist keine Adresse, die dieser Rechner erreicht</translation>
    </message>
    <message>
        <source>WLED at %1</source>
        <translation>WLED unter %1</translation>
    </message>
    <message>
        <source>WLED cannot be reached: %1</source>
        <translation>WLED ist nicht zu erreichen: %1</translation>
    </message>
</context>
</TS>
