<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en">
<context>
    <name>AdvancedSettingsPanel</name>
    <message>
        <source>Advanced settings</source>
        <translation>Ajustes avanzados</translation>
    </message>
    <message>
        <source>Beats go on at the last tempo while the music is stopped.</source>
        <translation>Los beats siguen al último tempo mientras la música está detenida.</translation>
    </message>
    <message>
        <source>The window says so as soon as the music stops.</source>
        <translation>La ventana lo indica en cuanto la música se detiene.</translation>
    </message>
    <message>
        <source>Show the &amp;speakers</source>
        <translation>Mostrar los a&amp;ltavoces</translation>
    </message>
    <message>
        <source>Two speakers pump with the beat.</source>
        <translation>Dos altavoces laten con el beat.</translation>
    </message>
    <message>
        <source>A quiet, dark look for dark places.</source>
        <translation>Un aspecto sobrio y oscuro para lugares oscuros.</translation>
    </message>
    <message>
        <source>The window stays above all others.</source>
        <translation>La ventana queda por encima de todas las demás.</translation>
    </message>
    <message>
        <source>Language of the system</source>
        <translation>Idioma del sistema</translation>
    </message>
    <message>
        <source>Go o&amp;n with virtual beats while stopped</source>
        <translation>&amp;Seguir con beats virtuales en las pausas</translation>
    </message>
    <message>
        <source>Show when the music is sto&amp;pped</source>
        <translation>Mos&amp;trar cuándo se detiene la música</translation>
    </message>
    <message>
        <source>Gra&amp;y mode</source>
        <translation>Modo &amp;gris</translation>
    </message>
    <message>
        <source>Always on &amp;top</source>
        <translation>Siempre en primer &amp;plano</translation>
    </message>
    <message>
        <source>Lan&amp;guage:</source>
        <translation>&amp;Idioma:</translation>
    </message>
</context>
<context>
    <name>AudioFileReader</name>
    <message>
        <source>there is no such file; check its name and folder</source>
        <translation>ese archivo no existe; revise el nombre y la carpeta</translation>
    </message>
    <message>
        <source>cannot be opened: %1</source>
        <translation>no se puede abrir: %1</translation>
    </message>
    <message>
        <source>is a folder; name the audio files in it</source>
        <translation>es una carpeta; indique los archivos de audio que contiene</translation>
    </message>
    <message>
        <source>the file is empty; get a whole copy of it</source>
        <translation>el archivo está vacío; consiga una copia completa</translation>
    </message>
    <message>
        <source>may not be read; check its permissions</source>
        <translation>no se permite leerlo; revise sus permisos</translation>
    </message>
    <message>
        <source>is not audio, or is damaged at its start; WAV, FLAC, Ogg Vorbis, Opus, MP3 and AIFF files are read</source>
        <translation>no es audio o está dañado al principio; se leen archivos WAV, FLAC, Ogg Vorbis, Opus, MP3 y AIFF</translation>
    </message>
    <message>
        <source>is no audio stream that can be read; for raw 16-bit samples add --raw RATE, else save it to a file first</source>
        <translation>no es un flujo de audio legible; para muestras de 16 bits sin formato añada --raw RATE, si no, guárdelo antes en un archivo</translation>
    </message>
    <message>
        <source>has a sample rate of %1 Hz; convert it to one from %2 to %3 Hz</source>
        <translation>tiene una frecuencia de muestreo de %1 Hz; conviértalo a una de %2 a %3 Hz</translation>
    </message>
    <message>
        <source>cannot be kept in %1 for its decoder: %2; save it to a file first</source>
        <translation>no se puede guardar en %1 para su decodificador: %2; guárdelo antes en un archivo</translation>
    </message>
    <message>
        <source>its header counts no samples, though %1 bytes follow it: the recording was not closed</source>
        <translation>su cabecera no cuenta muestras, aunque la siguen %1 bytes: la grabación no se cerró</translation>
    </message>
    <message>
        <source>is a file of the kind %1, which is not read; convert it to WAV, FLAC, Ogg Vorbis, Opus, MP3 or AIFF: ffmpeg -i FILE song.flac</source>
        <translation>es un archivo del tipo %1, que no se lee; conviértalo a WAV, FLAC, Ogg Vorbis, Opus, MP3 o AIFF: ffmpeg -i ARCHIVO song.flac</translation>
    </message>
    <message>
        <source>truncated: its end is missing</source>
        <translation>truncado: falta el final</translation>
    </message>
    <message>
        <source>truncated: %1 of %2 bytes are there</source>
        <translation>truncado: hay %1 de %2 bytes</translation>
    </message>
    <message>
        <source>damaged or truncated: only %1 s of %2 s can be read</source>
        <translation>dañado o truncado: solo se pueden leer %1 s de %2 s</translation>
    </message>
    <message>
        <source>damaged: %1</source>
        <translation>dañado: %1</translation>
    </message>
    <message>
        <source>%1; get a whole copy of it</source>
        <translation>%1; consiga una copia completa</translation>
    </message>
</context>
<context>
    <name>BoothActions</name>
    <message>
        <source>&amp;Profile</source>
        <translation>&amp;Perfil</translation>
    </message>
</context>
<context>
    <name>BoothKeys</name>
    <message>
        <source>&amp;Tap the tempo</source>
        <translation>Marcar el &amp;tempo</translation>
    </message>
    <message>
        <source>This beat is the &amp;one</source>
        <translation>Este beat es el &amp;uno</translation>
    </message>
    <message>
        <source>Round the tempo to &amp;whole BPM</source>
        <translation>&amp;Redondear el tempo a BPM enteros</translation>
    </message>
    <message>
        <source>&amp;Hold the tempo, or release it</source>
        <translation>&amp;Fijar el tempo o soltarlo</translation>
    </message>
    <message>
        <source>Beats 10 ms &amp;earlier</source>
        <translation>Beats 10 ms &amp;antes</translation>
    </message>
    <message>
        <source>Beats 10 ms &amp;later</source>
        <translation>Beats 10 ms &amp;después</translation>
    </message>
    <message>
        <source>&amp;Double the tempo</source>
        <translation>D&amp;oblar el tempo</translation>
    </message>
    <message>
        <source>Hal&amp;f the tempo</source>
        <translation>Tempo a la &amp;mitad</translation>
    </message>
    <message>
        <source>&amp;Search anew</source>
        <translation>&amp;Buscar de nuevo</translation>
    </message>
    <message>
        <source>&amp;Automatic tracking</source>
        <translation>Seguimiento &amp;automático</translation>
    </message>
    <message>
        <source>The profile of that place in the &amp;list</source>
        <translation>El perfil de ese lugar en la &amp;lista</translation>
    </message>
    <message>
        <source>Stage &amp;view, on the next screen, and back</source>
        <translation>&amp;Vista de escenario, en la pantalla siguiente, y volver</translation>
    </message>
    <message>
        <source>Show the &amp;keys</source>
        <translation>Mostrar las &amp;teclas</translation>
    </message>
    <message>
        <source>O&amp;utputs on or off</source>
        <translation>&amp;Salidas, encender o apagar</translation>
    </message>
    <message>
        <source>&amp;Mute the file that is played, or not</source>
        <translation>Silenciar o no el archi&amp;vo que se reproduce</translation>
    </message>
    <message>
        <source>Pause the last two minutes, or &amp;go on</source>
        <translation>Pausar los dos últimos minutos, o se&amp;guir</translation>
    </message>
    <message>
        <source>Sho&amp;w less time of them</source>
        <translation>Mostrar men&amp;os tiempo de ellos</translation>
    </message>
    <message>
        <source>Show mo&amp;re time of them</source>
        <translation>Mostrar más tiempo de ellos (&amp;x)</translation>
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
        <translation>Tempo en pulsaciones por minuto</translation>
    </message>
    <message>
        <source>Waiting for sound.</source>
        <translation>A la espera de sonido.</translation>
    </message>
    <message>
        <source>Stopped; this was the tempo.</source>
        <translation>En pausa; este era el tempo.</translation>
    </message>
    <message>
        <source>Stopped: no music.</source>
        <translation>En pausa: no hay música.</translation>
    </message>
    <message>
        <source>Held: not measured now.</source>
        <translation>Mantenido: ahora no se mide.</translation>
    </message>
    <message>
        <source>Measured %1 BPM, out of the range of “%2”</source>
        <translation>Medido: %1 BPM, fuera del margen de «%2»</translation>
    </message>
    <message>
        <source>%1; half of it: %2.</source>
        <translation>%1; la mitad: %2.</translation>
    </message>
    <message>
        <source>%1; the double: %2.</source>
        <translation>%1; el doble: %2.</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>Midiendo…</translation>
    </message>
    <message>
        <source>Confidence</source>
        <translation>Confianza</translation>
    </message>
    <message>
        <source>How sure it is that the next beat falls with the music&apos;s.</source>
        <translation>Qué seguro es que el próximo pulso caiga con el de la música.</translation>
    </message>
    <message>
        <source>Bar</source>
        <translation>Compás</translation>
    </message>
    <message>
        <source>Beat in the bar</source>
        <translation>Tiempo del compás</translation>
    </message>
    <message>
        <source>The place of the beat in its bar.</source>
        <translation>El lugar del tiempo en su compás.</translation>
    </message>
    <message>
        <source>Held by hand.</source>
        <translation>Mantenido a mano.</translation>
    </message>
    <message>
        <source>Led by hand.</source>
        <translation>Guiado a mano.</translation>
    </message>
</context>
<context>
    <name>ConfigurationStore</name>
    <message>
        <source>%1 cannot be read or is damaged; to begin anew: audio-analyzer config reset</source>
        <translation>%1 no se puede leer o está dañado; para empezar de cero: audio-analyzer config reset</translation>
    </message>
    <message>
        <source>%1 cannot be written; the folder %2 must be writable, and the name free for a file</source>
        <translation>%1 no se puede escribir; la carpeta %2 debe permitir escritura y el nombre estar libre para un archivo</translation>
    </message>
    <message>
        <source>%1 is not a file; move it away</source>
        <translation>%1 no es un archivo; muévalo a otro lugar</translation>
    </message>
    <message>
        <source>%1 %2 instead of %3</source>
        <comment>setting, value taken, value in the file</comment>
        <translation>%1 %2 en lugar de %3</translation>
    </message>
    <message>
        <source>%1 of the profile &quot;%2&quot;</source>
        <translation>%1 del perfil «%2»</translation>
    </message>
    <message>
        <source>%1 holds values beyond their limits; taken: %2</source>
        <translation>%1 contiene valores fuera de sus límites; se toman: %2</translation>
    </message>
    <message>
        <source>%1 is being changed by another program, which does not finish; end that program and try again</source>
        <translation>Otro programa está cambiando %1 y no termina; ciérrelo e inténtelo de nuevo</translation>
    </message>
    <message>
        <source>%1 cannot be written; remove %2</source>
        <translation>No se puede escribir %1; elimine %2</translation>
    </message>
</context>
<context>
    <name>DurationsPanel</name>
    <message>
        <source>Durations</source>
        <translation>Duraciones</translation>
    </message>
    <message>
        <source>&amp;Quiet up to:</source>
        <translation>Silencio &amp;hasta:</translation>
    </message>
    <message>
        <source>Restore &amp;defaults</source>
        <translation>&amp;Restablecer</translation>
    </message>
    <message>
        <source> s</source>
        <comment>seconds</comment>
        <translation> s</translation>
    </message>
    <message>
        <source>%1 to %2 s</source>
        <translation>de %1 a %2 s</translation>
    </message>
    <message>
        <source>silence; 0 to %1</source>
        <translation>silencio; de 0 a %1</translation>
    </message>
    <message>
        <source>&amp;Average volume over:</source>
        <translation>Volumen &amp;medio durante:</translation>
    </message>
    <message>
        <source>The automatic threshold follows the volume of this span.</source>
        <translation>El umbral automático sigue el volumen de este intervalo.</translation>
    </message>
    <message>
        <source>&amp;Tempo measured over:</source>
        <translation>&amp;Tempo medido durante:</translation>
    </message>
    <message>
        <source>The beats of this span make the tempo: a long one is steady, a short one follows quickly.</source>
        <translation>Los beats de este intervalo dan el tempo: si es largo, es estable; si es corto, reacciona antes.</translation>
    </message>
    <message>
        <source>&amp;Stopped after:</source>
        <translation>&amp;Parada tras:</translation>
    </message>
    <message>
        <source>When it has been quiet for so long, the music has stopped.</source>
        <translation>Tras este tiempo en silencio, la música se considera detenida.</translation>
    </message>
    <message>
        <source>Sound up to this level counts as quiet.</source>
        <translation>Hasta este nivel, el sonido cuenta como silencio.</translation>
    </message>
    <message>
        <source>All durations and levels as they were at first.</source>
        <translation>Todas las duraciones y niveles con su valor original.</translation>
    </message>
    <message>
        <source>%1 dBFS; 0 to %2</source>
        <translation>%1 dBFS; de 0 a %2</translation>
    </message>
</context>
<context>
    <name>InputDevicesModel</name>
    <message>
        <source>%1: records what this computer plays</source>
        <translation>%1: graba lo que reproduce este equipo</translation>
    </message>
    <message>
        <source>absent</source>
        <translation>ausente</translation>
    </message>
    <message>
        <source>default</source>
        <translation>predeterminada</translation>
    </message>
    <message>
        <source>monitor</source>
        <translation>monitor</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>device (its marks)</comment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>The system&apos;s default, whichever it is</source>
        <translation>La predeterminada del sistema, sea cual sea</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>description, name</comment>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1, level %2 dB</source>
        <comment>device</comment>
        <translation>%1, nivel %2 dB</translation>
    </message>
</context>
<context>
    <name>InputDevicesPanel</name>
    <message>
        <source>Audio inputs</source>
        <translation>Entradas de audio</translation>
    </message>
    <message>
        <source>Looks for inputs now. Where that takes long, it is not done by itself while sound is recorded.</source>
        <translation>Busca entradas ahora. Donde eso tarda, no se hace de forma automática durante la grabación.</translation>
    </message>
    <message>
        <source>The chosen input is absent; it is resumed when it returns</source>
        <translation>La entrada elegida está ausente; se reanuda cuando vuelva</translation>
    </message>
    <message>
        <source>No input found; connect one</source>
        <translation>No se encontró ninguna entrada; conecte una</translation>
    </message>
    <message>
        <source>Choose an input</source>
        <translation>Elija una entrada</translation>
    </message>
    <message numerus="yes">
        <source>%n input(s)</source>
        <translation>
            <numerusform>%n entrada</numerusform>
            <numerusform>%n entradas</numerusform>
        </translation>
    </message>
    <message>
        <source>L&amp;ook again</source>
        <translation>&amp;Buscar de nuevo</translation>
    </message>
    <message>
        <source>No sound server answered at the start: these are the inputs that Qt finds by itself.</source>
        <translation>Al inicio no respondió ningún servidor de sonido: estas son las entradas que Qt encuentra por sí mismo.</translation>
    </message>
</context>
<context>
    <name>KeysPage</name>
    <message>
        <source>The keys</source>
        <translation>Las teclas</translation>
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
        <translation>Pulso</translation>
    </message>
    <message>
        <source>Beat lamp</source>
        <translation>Luz de beat</translation>
    </message>
    <message>
        <source>Pulse lamp</source>
        <translation>Luz de pulso</translation>
    </message>
    <message>
        <source>Flashes when a beat falls due. A ring only: the beat was not heard but predicted.</source>
        <translation>Destella cuando toca un beat. Solo un anillo: el beat no se oyó, se predijo.</translation>
    </message>
    <message>
        <source>Flashes when a pulse is heard. A ring only: a beat was missing and is assumed.</source>
        <translation>Destella cuando se oye un pulso. Solo un anillo: faltaba un beat y se supone.</translation>
    </message>
    <message>
        <source>virtual</source>
        <translation>virtual</translation>
    </message>
    <message>
        <source>real</source>
        <translation>real</translation>
    </message>
</context>
<context>
    <name>LevelPanel</name>
    <message>
        <source>&amp;Automatic threshold</source>
        <translation>Umbral a&amp;utomático</translation>
    </message>
    <message>
        <source>The threshold follows the average volume and the sensibility of the profile.</source>
        <translation>El umbral sigue el volumen medio y la sensibilidad del perfil.</translation>
    </message>
    <message>
        <source>Threshold in dB below full scale</source>
        <translation>Umbral en dB por debajo del fondo de escala</translation>
    </message>
    <message>
        <source>A block is a pulse when a quarter of its samples reach the threshold.</source>
        <translation>Un bloque es un pulso cuando un cuarto de sus muestras alcanza el umbral.</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Actual</translation>
    </message>
    <message>
        <source>Average</source>
        <translation>Media</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Máximo</translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation>Umbral</translation>
    </message>
    <message>
        <source>dBFS</source>
        <translation>dBFS</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Entrada</translation>
    </message>
    <message>
        <source>Level of the input</source>
        <translation>Nivel de la entrada</translation>
    </message>
    <message>
        <source>The loudest samples as they come from the input.</source>
        <translation>Las muestras más fuertes tal como llegan de la entrada.</translation>
    </message>
    <message>
        <source>Band</source>
        <translation>Banda</translation>
    </message>
    <message>
        <source>Volume of the band</source>
        <translation>Volumen de la banda</translation>
    </message>
    <message>
        <source>What is left of the input in the band of the profile, in which pulses are looked for.</source>
        <translation>Lo que queda de la entrada en la banda del perfil, donde se buscan los pulsos.</translation>
    </message>
    <message>
        <source>Clipped</source>
        <translation>Saturado</translation>
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
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>&amp;Listen to the input again</source>
        <translation>&amp;Escuchar de nuevo la entrada</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>&amp;Tempo</source>
        <translation>&amp;Tempo</translation>
    </message>
    <message>
        <source>&amp;Beat lamp</source>
        <translation>Luz de &amp;beat</translation>
    </message>
    <message>
        <source>P&amp;ulse lamp</source>
        <translation>Luz de &amp;pulso</translation>
    </message>
    <message>
        <source>&amp;Spectrum</source>
        <translation>&amp;Espectro</translation>
    </message>
    <message>
        <source>T&amp;hreshold</source>
        <translation>&amp;Umbral</translation>
    </message>
    <message>
        <source>&amp;Input devices</source>
        <translation>E&amp;ntradas de audio</translation>
    </message>
    <message>
        <source>&amp;Profiles</source>
        <translation>Per&amp;files</translation>
    </message>
    <message>
        <source>&amp;Manual beat</source>
        <translation>Beat &amp;manual</translation>
    </message>
    <message>
        <source>&amp;Durations</source>
        <translation>&amp;Duraciones</translation>
    </message>
    <message>
        <source>&amp;Advanced settings</source>
        <translation>Ajustes &amp;avanzados</translation>
    </message>
    <message>
        <source>R&amp;eset button</source>
        <translation>Botón de re&amp;inicio</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;yuda</translation>
    </message>
    <message>
        <source>&amp;About beat-monitor</source>
        <translation>&amp;Acerca de beat-monitor</translation>
    </message>
    <message>
        <source>Spectrum</source>
        <translation>Espectro</translation>
    </message>
    <message>
        <source>Volume and threshold</source>
        <translation>Volumen y umbral</translation>
    </message>
    <message>
        <source>Reset (R)</source>
        <translation>Reiniciar (R)</translation>
    </message>
    <message>
        <source>Forgets the tempo and starts to search again.</source>
        <translation>Olvida el tempo y vuelve a buscarlo.</translation>
    </message>
    <message>
        <source>Open audio file</source>
        <translation>Abrir archivo de audio</translation>
    </message>
    <message>
        <source>Audio files (*.wav *.flac *.ogg *.opus *.mp3 *.aiff *.aif);;All files (*)</source>
        <translation>Archivos de audio (*.wav *.flac *.ogg *.opus *.mp3 *.aiff *.aif);;Todos los archivos (*)</translation>
    </message>
    <message>
        <source>About beat-monitor</source>
        <translation>Acerca de beat-monitor</translation>
    </message>
    <message>
        <source>&lt;b&gt;beat-monitor %1&lt;/b&gt;&lt;p&gt;Shows the beat and the tempo of live music.&lt;/p&gt;&lt;p&gt;MIT licence.&lt;/p&gt;</source>
        <translation>&lt;b&gt;beat-monitor %1&lt;/b&gt;&lt;p&gt;Muestra el beat y el tempo de la música en directo.&lt;/p&gt;&lt;p&gt;Licencia MIT.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;Open audio file…</source>
        <translation>&amp;Abrir archivo de audio…</translation>
    </message>
    <message>
        <source>&amp;Beat</source>
        <translation>&amp;Beat</translation>
    </message>
    <message>
        <source>The stage view only glows with the beat.</source>
        <translation>La vista de escenario solo resplandece con el beat.</translation>
    </message>
    <message>
        <source>At most three &amp;flashes a second</source>
        <translation>Como máximo tres &amp;destellos por segundo</translation>
    </message>
    <message>
        <source>High &amp;contrast</source>
        <translation>Alto &amp;contraste</translation>
    </message>
    <message>
        <source>No input</source>
        <translation>Sin entrada</translation>
    </message>
    <message>
        <source>Last two mi&amp;nutes</source>
        <translation>Ú&amp;ltimos dos minutos</translation>
    </message>
    <message>
        <source>Last two minutes</source>
        <translation>Últimos dos minutos</translation>
    </message>
    <message>
        <source>&amp;Save what happened…</source>
        <translation>&amp;Guardar lo ocurrido…</translation>
    </message>
    <message>
        <source>Save what happened</source>
        <translation>Guardar lo ocurrido</translation>
    </message>
    <message>
        <source>Zip files (*.zip);;All files (*)</source>
        <translation>Archivos zip (*.zip);;Todos los archivos (*)</translation>
    </message>
    <message>
        <source>&amp;Outputs</source>
        <translation>Sa&amp;lidas</translation>
    </message>
    <message>
        <source>Soft f&amp;lash</source>
        <translation>Destello s&amp;uave</translation>
    </message>
</context>
<context>
    <name>ManualBeatPanel</name>
    <message>
        <source>Manual beat</source>
        <translation>Beat manual</translation>
    </message>
    <message>
        <source>Tap (T)</source>
        <translation>Marcar (T)</translation>
    </message>
    <message>
        <source>Tap with the beat: here, or with the key T.</source>
        <translation>Marque el ritmo: aquí o con la tecla T.</translation>
    </message>
    <message>
        <source>&amp;Round</source>
        <translation>Redo&amp;ndear</translation>
    </message>
    <message>
        <source>%1 BPM</source>
        <translation>%1 BPM</translation>
    </message>
    <message>
        <source>Tap with the beat</source>
        <translation>Marque el ritmo</translation>
    </message>
    <message>
        <source>Ha&amp;lf</source>
        <translation>&amp;Mitad</translation>
    </message>
    <message>
        <source>Dou&amp;ble</source>
        <translation>D&amp;oble</translation>
    </message>
    <message>
        <source>Half the tempo, at once: here, or with the arrow down.</source>
        <translation>La mitad del tempo, al momento: aquí o con la flecha abajo.</translation>
    </message>
    <message>
        <source>Twice the tempo, at once: here, or with the arrow up.</source>
        <translation>El doble del tempo, al momento: aquí o con la flecha arriba.</translation>
    </message>
    <message>
        <source>The nearest whole tempo: here, or with the key Y.</source>
        <translation>El tempo entero más próximo: aquí o con la tecla Y.</translation>
    </message>
    <message>
        <source>Keeps this tempo until it is released, whatever the music does: here, or with the key H.</source>
        <translation>Mantiene este tempo hasta que se suelte, haga lo que haga la música: aquí o con la tecla H.</translation>
    </message>
    <message>
        <source>The one (Space)</source>
        <translation>El uno (espacio)</translation>
    </message>
    <message>
        <source>The beat of now is the first of the bar: here, or with the space bar.</source>
        <translation>El beat de ahora es el primero del compás: aquí o con la barra espaciadora.</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <source>All beats that are shown and sent fall later by so much, or earlier when it is negative.</source>
        <translation>Todos los beats que se muestran y envían caen tanto más tarde, o antes si es negativo.</translation>
    </message>
    <message>
        <source>Tempo of the beats</source>
        <translation>Tempo de los beats</translation>
    </message>
    <message>
        <source>Lo&amp;cked (H)</source>
        <translation>&amp;Fijado (H)</translation>
    </message>
    <message>
        <source>Lo&amp;ck (H)</source>
        <translation>&amp;Fijar (H)</translation>
    </message>
    <message>
        <source>Held until released</source>
        <translation>Mantenido hasta soltarlo</translation>
    </message>
    <message>
        <source>The hand leads</source>
        <translation>Guía la mano</translation>
    </message>
    <message>
        <source>The music leads, at %1/%2 of its tempo</source>
        <translation>Guía la música, a %1/%2 de su tempo</translation>
    </message>
    <message>
        <source>The music leads</source>
        <translation>Guía la música</translation>
    </message>
    <message>
        <source>Shift the beats by:</source>
        <translation>Desplazar los beats:</translation>
    </message>
    <message>
        <source>Shift of the beats</source>
        <translation>Desplazamiento de los beats</translation>
    </message>
</context>
<context>
    <name>MomentFile</name>
    <message>
        <source>“%1” cannot be written: %2</source>
        <translation>No se puede escribir «%1»: %2</translation>
    </message>
    <message>
        <source>sound.flac        the sound, as it was kept
</source>
        <translation>sound.flac        el sonido, lo que se conservó
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
        <translation>Lo que beat-monitor %1 vio en los dos últimos minutos.

strip.png         la tira: lo que se dijo, beats, nivel, tempo
strip.json        lo mismo en números; los tiempos son segundos antes de guardar
log.txt           lo que se dijo, con la hora
settings.json     los ajustes del análisis
AudioAnalyzer.ini la ventana y las salidas, sin secretos
%2</translation>
    </message>
</context>
<context>
    <name>MonitorSession</name>
    <message>
        <source>The choice of the beats cannot be stored in %1.</source>
        <translation>La elección de los beats no se puede guardar en %1.</translation>
    </message>
</context>
<context>
    <name>OscExpressionParser</name>
    <message>
        <source>it is too long</source>
        <translation>es demasiado largo</translation>
    </message>
    <message>
        <source>unexpected &quot;%1&quot;</source>
        <translation>«%1» inesperado</translation>
    </message>
    <message>
        <source>it is nested too deep</source>
        <translation>está demasiado anidado</translation>
    </message>
    <message>
        <source>it ends too early</source>
        <translation>termina demasiado pronto</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not known</source>
        <translation>«%1» no se conoce</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is missing</source>
        <translation>falta «%1»</translation>
    </message>
</context>
<context>
    <name>OutputEditor</name>
    <message>
        <source>May stay empty.</source>
        <translation>Puede quedar vacía.</translation>
    </message>
    <message>
        <source>This kind has none.</source>
        <translation>Este tipo no tiene.</translation>
    </message>
    <message>
        <source>New output</source>
        <translation>Salida nueva</translation>
    </message>
    <message>
        <source>Output “%1”</source>
        <translation>Salida «%1»</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Nombre:</translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation>&amp;Tipo:</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Dirección:</translation>
    </message>
    <message>
        <source>&amp;Preset:</source>
        <translation>&amp;Plantilla:</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;Aceptar</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Cancelar</translation>
    </message>
</context>
<context>
    <name>OutputSettings</name>
    <message>
        <source>%1: output %2 is left out: %3</source>
        <translation>%1: se omite la salida %2: %3</translation>
    </message>
    <message>
        <source>%1: only the first %2 outputs count</source>
        <translation>%1: solo cuentan las primeras %2 salidas</translation>
    </message>
    <message>
        <source>there are %1 outputs already</source>
        <translation>ya hay %1 salidas</translation>
    </message>
    <message>
        <source>there is no output &quot;%1&quot;</source>
        <translation>no hay ninguna salida «%1»</translation>
    </message>
    <message>
        <source>its name must have 1 to %1 letters</source>
        <translation>su nombre debe tener de 1 a %1 letras</translation>
    </message>
    <message>
        <source>there is an output &quot;%1&quot; already</source>
        <translation>ya hay una salida «%1»</translation>
    </message>
    <message>
        <source>it has no kind</source>
        <translation>no tiene tipo</translation>
    </message>
    <message>
        <source>its kind, address or preset is too long, or no text</source>
        <translation>su tipo, dirección o plantilla es demasiado largo o no es texto</translation>
    </message>
    <message>
        <source>its offset must be %1 to %2 ms</source>
        <translation>su desplazamiento debe ser de %1 a %2 ms</translation>
    </message>
</context>
<context>
    <name>OutputStore</name>
    <message>
        <source>The outputs cannot be stored in %1.</source>
        <translation>Las salidas no se pueden guardar en %1.</translation>
    </message>
</context>
<context>
    <name>OutputTrial</name>
    <message>
        <source>it was lost</source>
        <translation>se perdió</translation>
    </message>
    <message>
        <source>%1 beats were sent</source>
        <translation>se enviaron %1 beats</translation>
    </message>
    <message>
        <source>it was not reached</source>
        <translation>no se alcanzó</translation>
    </message>
</context>
<context>
    <name>OutputsModel</name>
    <message>
        <source>reached</source>
        <translation>alcanzada</translation>
    </message>
    <message>
        <source>away</source>
        <translation>ausente</translation>
    </message>
    <message>
        <source>cannot be used</source>
        <translation>inservible</translation>
    </message>
    <message>
        <source>off</source>
        <translation>apagada</translation>
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
        <translation>Se está buscando.</translation>
    </message>
    <message>
        <source>All outputs are off: the key O switches them on.</source>
        <translation>Todas las salidas están apagadas: la tecla O las enciende.</translation>
    </message>
    <message>
        <source>Not enabled: nothing is sent to it.</source>
        <translation>Sin marcar: no se le envía nada.</translation>
    </message>
    <message>
        <source>Two bars at 120 BPM: %1.</source>
        <translation>Dos compases a 120 BPM: %1.</translation>
    </message>
    <message>
        <source>The test has failed: %1.</source>
        <translation>La prueba ha fallado: %1.</translation>
    </message>
    <message>
        <source>The test is over, %1: %2.</source>
        <translation>La prueba ha terminado, %1: %2.</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Salidas</translation>
    </message>
    <message>
        <source>What is checked gets the beats. Enter checks, Ins adds, F2 changes, Del removes.</source>
        <translation>Lo marcado recibe los beats. Intro marca, Ins añade, F2 cambia, Supr quita.</translation>
    </message>
    <message>
        <source>&amp;Add…</source>
        <translation>&amp;Añadir…</translation>
    </message>
    <message>
        <source>C&amp;hange…</source>
        <translation>A&amp;justar…</translation>
    </message>
    <message>
        <source>Change name, kind, address and preset.</source>
        <translation>Cambiar nombre, tipo, dirección y plantilla.</translation>
    </message>
    <message>
        <source>Remo&amp;ve</source>
        <translation>Q&amp;uitar</translation>
    </message>
    <message>
        <source>Send nothing to it any more, and forget it.</source>
        <translation>No enviarle nada más y olvidarla.</translation>
    </message>
    <message>
        <source>Test no&amp;w</source>
        <translation>Probar a&amp;hora</translation>
    </message>
    <message>
        <source>Sends two bars at 120 BPM, without any music.</source>
        <translation>Envía dos compases a 120 BPM, sin música.</translation>
    </message>
    <message>
        <source>O&amp;ffset:</source>
        <translation>Despla&amp;zamiento:</translation>
    </message>
    <message>
        <source>By how much its beats come later, or earlier to the left. At once.</source>
        <translation>Cuánto más tarde llegan sus beats, o antes hacia la izquierda. Al instante.</translation>
    </message>
    <message>
        <source>Offset of the output</source>
        <translation>Desplazamiento de la salida</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <source>None yet.</source>
        <translation>Ninguna aún.</translation>
    </message>
    <message>
        <source>Lights, visuals or an instrument that follow the beat.</source>
        <translation>Luces, imágenes o un instrumento que siguen el beat.</translation>
    </message>
</context>
<context>
    <name>ProfileCheck</name>
    <message>
        <source>Give the profile a name.</source>
        <translation>Dé un nombre al perfil.</translation>
    </message>
    <message numerus="yes">
        <source>The name has %n character(s) too many.</source>
        <translation>
            <numerusform>Al nombre le sobra %n carácter.</numerusform>
            <numerusform>Al nombre le sobran %n caracteres.</numerusform>
        </translation>
    </message>
    <message>
        <source>There is a profile “%1” already; choose another name.</source>
        <translation>Ya existe un perfil «%1»; elija otro nombre.</translation>
    </message>
    <message>
        <source>The lowest tempo must be at least 1 BPM.</source>
        <translation>El tempo más lento debe ser de al menos 1 BPM.</translation>
    </message>
    <message>
        <source>The highest tempo must be at most %1 BPM.</source>
        <translation>El tempo más rápido debe ser de %1 BPM como máximo.</translation>
    </message>
    <message>
        <source>The lowest tempo must not be above the highest.</source>
        <translation>El tempo más lento no debe superar al más rápido.</translation>
    </message>
    <message>
        <source>The lower edge must not be above the upper edge.</source>
        <translation>El límite inferior no debe superar al superior.</translation>
    </message>
    <message>
        <source>The sensibility must be 0 or more.</source>
        <translation>La sensibilidad debe ser 0 o más.</translation>
    </message>
</context>
<context>
    <name>ProfileEditor</name>
    <message>
        <source>Lowest and highest tempo to look for, 1 to %1 BPM</source>
        <translation>Tempo más lento y más rápido que se busca, de 1 a %1 BPM</translation>
    </message>
    <message>
        <source>Lower and upper edge of the band to listen to</source>
        <translation>Límites inferior y superior de la banda que se escucha</translation>
    </message>
    <message>
        <source>A pulse is that many times louder than the average; 0 or more</source>
        <translation>Un pulso supera tantas veces el volumen medio; 0 o más</translation>
    </message>
    <message>
        <source>A name of your choice</source>
        <translation>Un nombre a su gusto</translation>
    </message>
    <message>
        <source>New profile</source>
        <translation>Perfil nuevo</translation>
    </message>
    <message>
        <source>Profile “%1”</source>
        <translation>Perfil «%1»</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Nombre:</translation>
    </message>
    <message>
        <source>&amp;Tempo:</source>
        <translation>&amp;Tempo:</translation>
    </message>
    <message>
        <source>&amp;Band:</source>
        <translation>&amp;Banda:</translation>
    </message>
    <message>
        <source>&amp;Sensibility:</source>
        <translation>&amp;Sensibilidad:</translation>
    </message>
    <message>
        <source>Lowest tempo</source>
        <translation>Tempo más lento</translation>
    </message>
    <message>
        <source>Highest tempo</source>
        <translation>Tempo más rápido</translation>
    </message>
    <message>
        <source>Lower edge of the band</source>
        <translation>Límite inferior de la banda</translation>
    </message>
    <message>
        <source>Upper edge of the band</source>
        <translation>Límite superior de la banda</translation>
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
        <translation>sin límite</translation>
    </message>
    <message>
        <source>This profile is built in: changes last until the program ends. To keep them, save them as a new profile under a name of its own.</source>
        <translation>Este perfil viene integrado: los cambios duran hasta cerrar el programa. Para conservarlos, guárdelos como perfil nuevo con otro nombre.</translation>
    </message>
    <message>
        <source>&amp;Use until exit</source>
        <translation>&amp;Usar hasta cerrar</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;Aceptar</translation>
    </message>
    <message>
        <source>Save as ne&amp;w</source>
        <translation>&amp;Guardar como nuevo</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Cancelar</translation>
    </message>
</context>
<context>
    <name>ProfilesModel</name>
    <message>
        <source>%1 (%2 to %3 BPM)</source>
        <comment>name (tempo range)</comment>
        <translation>%1 (de %2 a %3 BPM)</translation>
    </message>
    <message>
        <source>%1, changed until exit</source>
        <translation>%1, modificado hasta cerrar</translation>
    </message>
</context>
<context>
    <name>ProfilesPanel</name>
    <message>
        <source>%1 (copy)</source>
        <translation>%1 (copia)</translation>
    </message>
    <message>
        <source>%1 (copy %2)</source>
        <translation>%1 (copia %2)</translation>
    </message>
    <message>
        <source>Profiles</source>
        <translation>Perfiles</translation>
    </message>
    <message>
        <source>Make a new profile.</source>
        <translation>Crear un perfil nuevo.</translation>
    </message>
    <message>
        <source>D&amp;uplicate</source>
        <translation>Dupli&amp;car</translation>
    </message>
    <message>
        <source>Make a profile of your own from this one.</source>
        <translation>Crear un perfil propio a partir de este.</translation>
    </message>
    <message>
        <source>&amp;Edit…</source>
        <translation>&amp;Editar…</translation>
    </message>
    <message>
        <source>Change name, tempo range, band and sensibility (F2).</source>
        <translation>Cambiar nombre, margen de tempo, banda y sensibilidad (F2).</translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation>&amp;Quitar</translation>
    </message>
    <message>
        <source>Br&amp;ing back</source>
        <translation>&amp;Recuperar</translation>
    </message>
    <message>
        <source>Your own profile; it is saved with the settings.</source>
        <translation>Perfil propio; se guarda con los ajustes.</translation>
    </message>
    <message>
        <source>Built in: changes last until the program ends. To keep them, duplicate it.</source>
        <translation>Integrado: los cambios duran hasta cerrar el programa. Para conservarlos, duplíquelo.</translation>
    </message>
    <message>
        <source>%1, sensibility %2. %3</source>
        <comment>band, sensibility. kind of profile</comment>
        <translation>%1, sensibilidad %2. %3</translation>
    </message>
    <message>
        <source>Remove this profile (Del).</source>
        <translation>Quitar este perfil (Supr).</translation>
    </message>
    <message>
        <source>A built-in profile cannot be removed.</source>
        <translation>Un perfil integrado no se puede quitar.</translation>
    </message>
    <message>
        <source>“%1” is removed.</source>
        <translation>Se quitó «%1».</translation>
    </message>
    <message>
        <source>All frequencies</source>
        <translation>Todas las frecuencias</translation>
    </message>
    <message>
        <source>Up to %1 Hz</source>
        <translation>Hasta %1 Hz</translation>
    </message>
    <message>
        <source>From %1 Hz</source>
        <translation>Desde %1 Hz</translation>
    </message>
    <message>
        <source>%1 to %2 Hz</source>
        <translation>De %1 a %2 Hz</translation>
    </message>
    <message>
        <source>A&amp;dd…</source>
        <translation>Aña&amp;dir…</translation>
    </message>
    <message>
        <source>Automatic: follows any music by itself</source>
        <translation>Automático: sigue cualquier música por sí mismo</translation>
    </message>
    <message>
        <source>Or choose a profile for the tempo range and band of your music.</source>
        <translation>O elija un perfil para el rango de tempo y la banda de su música.</translation>
    </message>
</context>
<context>
    <name>SaveDialog</name>
    <message>
        <source>with &amp;sound</source>
        <translation>con &amp;sonido</translation>
    </message>
    <message>
        <source>Save what happened</source>
        <translation>Guardar lo ocurrido</translation>
    </message>
    <message>
        <source>One zip file with the last two minutes as a picture and as numbers, what was said, and the settings.</source>
        <translation>Un archivo zip con los dos últimos minutos como imagen y en números, lo que se dijo y los ajustes.</translation>
    </message>
    <message>
        <source>Sa&amp;ve…</source>
        <translation>&amp;Guardar…</translation>
    </message>
    <message>
        <source>%1 s of sound are kept by now, in memory alone; two minutes at most, until this is switched off.</source>
        <translation>Se conservan ya %1 s de sonido, solo en memoria; dos minutos como máximo, hasta que se desactive.</translation>
    </message>
    <message>
        <source>No sound is kept. Tick it, and from then on the last two minutes are.</source>
        <translation>No se conserva ningún sonido. Al marcarlo, desde entonces se conservan los dos últimos minutos.</translation>
    </message>
</context>
<context>
    <name>SourceTexts</name>
    <message>
        <source>No data comes from “%1”. Check that nothing else holds it.</source>
        <translation>No llegan datos de «%1». Compruebe que nada más la esté usando.</translation>
    </message>
    <message>
        <source>Nothing but silence from “%1”. Start the music or unmute the input.</source>
        <translation>Solo silencio de «%1». Ponga la música o quite el silencio de la entrada.</translation>
    </message>
    <message>
        <source>Too quiet to count as music. Turn the input up, or lower the stop threshold.</source>
        <translation>Demasiado bajo para contar como música. Suba la entrada o baje el umbral de silencio.</translation>
    </message>
    <message>
        <source>Clipped: the level is cut off at full scale. Turn the input down.</source>
        <translation>Saturación: el nivel se corta en el fondo de escala. Baje la entrada.</translation>
    </message>
    <message>
        <source>“%1” offers no format that can be analysed. Choose another input.</source>
        <translation>«%1» no ofrece ningún formato que se pueda analizar. Elija otra entrada.</translation>
    </message>
    <message>
        <source>“%1” delivers %2 channels only; a mono input or a monitor is needed.</source>
        <translation>«%1» solo entrega %2 canales; hace falta una entrada mono o un monitor.</translation>
    </message>
    <message>
        <source>Waiting for “%1”; it resumes as soon as the device is there.</source>
        <translation>A la espera de «%1»; se reanuda en cuanto esté el dispositivo.</translation>
    </message>
    <message>
        <source>Opening “%1” …</source>
        <translation>Abriendo «%1» …</translation>
    </message>
    <message>
        <source>Listening to “%1”</source>
        <translation>Escuchando «%1»</translation>
    </message>
    <message>
        <source>Listening to “%1”: no music</source>
        <translation>Escuchando «%1»: sin música</translation>
    </message>
    <message>
        <source>No input device. Plug one in, start a sound server, or drop an audio file here.</source>
        <translation>No hay ninguna entrada. Conecte una, inicie un servidor de sonido o suelte aquí un archivo de audio.</translation>
    </message>
    <message>
        <source>“%1” has ended</source>
        <translation>«%1» ha terminado</translation>
    </message>
    <message>
        <source>“%1”: %2</source>
        <translation>«%1»: %2</translation>
    </message>
    <message>
        <source>Playing “%1”</source>
        <translation>Reproduciendo «%1»</translation>
    </message>
    <message>
        <source>Playing “%1” without sound: %2</source>
        <translation>Reproduciendo «%1» sin sonido: %2</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>there is no output</source>
        <translation>no hay ninguna salida</translation>
    </message>
    <message>
        <source>the output takes no sound</source>
        <translation>la salida no acepta sonido</translation>
    </message>
    <message>
        <source>no sound server answers</source>
        <translation>ningún servidor de sonido responde</translation>
    </message>
    <message>
        <source>muted</source>
        <translation>silenciado</translation>
    </message>
    <message>
        <source>Play music: the tempo comes by itself. “%1” is listened to.</source>
        <translation>Ponga música: el tempo llega solo. Se escucha «%1».</translation>
    </message>
</context>
<context>
    <name>SpeakersPanel</name>
    <message>
        <source>Speakers that pump with the beat</source>
        <translation>Altavoces que laten con el beat</translation>
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
        <translation>Espectro de amplitud</translation>
    </message>
    <message>
        <source>The loudest bin so far is 0 dB. Shaded: the band of the selected profile, in which pulses are looked for.</source>
        <translation>0 dB es el valor más fuerte hasta ahora. Sombreada: la banda del perfil elegido, en la que se buscan pulsos.</translation>
    </message>
</context>
<context>
    <name>StageView</name>
    <message>
        <source>Stage view</source>
        <translation>Vista de escenario</translation>
    </message>
    <message>
        <source>Held</source>
        <translation>Fijado</translation>
    </message>
    <message>
        <source>Hand</source>
        <translation>Mano</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Música</translation>
    </message>
    <message>
        <source>No beat</source>
        <translation>Sin beat</translation>
    </message>
</context>
<context>
    <name>StripCanvas</name>
    <message>
        <source>The last two minutes</source>
        <translation>Los dos últimos minutos</translation>
    </message>
    <message>
        <source>%1 s ago</source>
        <translation>hace %1 s</translation>
    </message>
    <message>
        <source>now</source>
        <translation>ahora</translation>
    </message>
    <message>
        <source>Level %1 dB</source>
        <translation>Nivel %1 dB</translation>
    </message>
    <message>
        <source>%1 BPM</source>
        <translation>%1 BPM</translation>
    </message>
    <message>
        <source>No music</source>
        <translation>Sin música</translation>
    </message>
</context>
<context>
    <name>StripPanel</name>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Holds the picture still (P)</source>
        <translation>Detiene la imagen (P)</translation>
    </message>
    <message>
        <source>Nearer</source>
        <translation>Más cerca</translation>
    </message>
    <message>
        <source>Shows less time (+, or the mouse wheel)</source>
        <translation>Muestra menos tiempo (+ o la rueda del ratón)</translation>
    </message>
    <message>
        <source>Farther</source>
        <translation>Más lejos</translation>
    </message>
    <message>
        <source>Shows more time (−, or the mouse wheel)</source>
        <translation>Muestra más tiempo (− o la rueda del ratón)</translation>
    </message>
</context>
<context>
    <name>Tray</name>
    <message>
        <source>&amp;Hide window</source>
        <translation>&amp;Ocultar la ventana</translation>
    </message>
    <message>
        <source>&amp;Show window</source>
        <translation>&amp;Mostrar la ventana</translation>
    </message>
</context>
<context>
    <name>ZipWriter</name>
    <message>
        <source>it cannot be written</source>
        <translation>no se puede escribir</translation>
    </message>
</context>
<context>
    <name>shared</name>
    <message>
        <source>&quot;%1&quot;: give %2, or nothing</source>
        <translation>«%1»: indique %2, o nada</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: give some of beat 0 to 127 or none, bar 0 to 127 or none, channel 1 to 16, velocity 1 to 127, length 1 to 24, with commas between them</source>
        <translation>«%1»: indique algo de beat 0 a 127 o none, bar 0 a 127 o none, channel 1 a 16, velocity 1 a 127, length 1 a 24, separados por comas</translation>
    </message>
    <message>
        <source>send MIDI clock; without PORT at a port of its own</source>
        <translation>envía reloj MIDI; sin PORT, en un puerto propio</translation>
    </message>
    <message>
        <source>with always the clock also ticks while the music stands</source>
        <translation>con always el reloj también late mientras la música está parada</translation>
    </message>
    <message>
        <source>the instrument starts, plays two bars, shows 120 BPM and stops</source>
        <translation>el instrumento arranca, toca dos compases, muestra 120 BPM y se para</translation>
    </message>
    <message>
        <source>play notes on beats and bars; without PORT at a port of its own</source>
        <translation>toca notas en beats y compases; sin PORT, en un puerto propio</translation>
    </message>
    <message>
        <source>NOTES like &quot;beat 36, bar 38, channel 10, velocity 100, length 6&quot;;
none for no note, length in 24ths of a beat</source>
        <translation>NOTES como «beat 36, bar 38, channel 10, velocity 100, length 6»;
none para ninguna nota, length en 24avos de beat</translation>
    </message>
    <message>
        <source>eight notes, half a second apart, and another one with the first and the fifth</source>
        <translation>ocho notas separadas medio segundo, y otra con la primera y la quinta</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: give HOST or HOST:PORT, or nothing for all in the net</source>
        <translation>«%1»: indique HOST o HOST:PORT, o nada para todos los de la red</translation>
    </message>
    <message>
        <source>send beats to light programs by OS2L; to all of them without HOST</source>
        <translation>envía beats por OS2L a programas de luces; sin HOST, a todos</translation>
    </message>
    <message>
        <source>the light program gets eight beats; what it has learned from the OS2L beat switches on each, half a second apart</source>
        <translation>el programa de luces recibe ocho beats; lo que aprendió del beat OS2L cambia con cada uno, cada medio segundo</translation>
    </message>
    <message>
        <source>send beats as Open Sound Control</source>
        <translation>envía beats como Open Sound Control</translation>
    </message>
    <message>
        <source>PRESET is one of %1,
or messages of your own</source>
        <translation>La plantilla es una de %1,
o mensajes propios</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: give HOST:PORT[/PRESET], or tcp:HOST:PORT[/PRESET]</source>
        <translation>«%1»: indique HOST:PORT[/PRESET], o tcp:HOST:PORT[/PRESET]</translation>
    </message>
    <message>
        <source>messages of your own</source>
        <translation>mensajes propios</translation>
    </message>
    <message>
        <source>Resolume&apos;s tempo goes to 120 BPM, and its beat to the one twice</source>
        <translation>el tempo de Resolume pasa a 120 BPM, y su beat dos veces al uno</translation>
    </message>
    <message>
        <source>Chromatik&apos;s tempo goes to 120 BPM, and its beat counts 1 2 3 4 twice</source>
        <translation>el tempo de Chromatik pasa a 120 BPM, y su beat cuenta dos veces 1 2 3 4</translation>
    </message>
    <message>
        <source>the fader of executor 201 goes to 70.7 %, which is 120 BPM</source>
        <translation>el fader del executor 201 pasa al 70.7 %, que son 120 BPM</translation>
    </message>
    <message>
        <source>the tempo shown goes to 120 BPM</source>
        <translation>el tempo mostrado pasa a 120 BPM</translation>
    </message>
    <message>
        <source>an OSC In CHOP gets the channels bpm, beat, count, bar, confidence, phase and playing</source>
        <translation>un OSC In CHOP recibe los canales bpm, beat, count, bar, confidence, phase y playing</translation>
    </message>
    <message>
        <source>the OSC signal blinks in QLC+&apos;s input tab, and a button that learned /beat goes on and off eight times</source>
        <translation>la señal OSC parpadea en la pestaña de entradas de QLC+, y un botón que aprendió /beat se enciende y apaga ocho veces</translation>
    </message>
    <message>
        <source>the receiver gets /playing 1, eight times /beat, twice /tempo and /bar, and /playing 0</source>
        <translation>el receptor recibe /playing 1, ocho veces /beat, dos veces /tempo y /bar, y /playing 0</translation>
    </message>
    <message>
        <source>the receiver gets your messages for eight beats and two bars</source>
        <translation>el receptor recibe sus mensajes para ocho beats y dos compases</translation>
    </message>
    <message>
        <source>%1: give its address</source>
        <translation>%1: indique su dirección</translation>
    </message>
    <message>
        <source>there is no kind of output &quot;%1&quot;; there are: %2</source>
        <translation>no hay ningún tipo de salida «%1»; hay: %2</translation>
    </message>
    <message>
        <source>send sound and beats to WLED; without HOST to all in the net</source>
        <translation>envía sonido y beats a WLED; sin HOST, a todos los de la red</translation>
    </message>
    <message>
        <source>with an effect that shows peaks, Ripple Peak for one, the LEDs answer eight times; there is no sound in the test</source>
        <translation>con un efecto que muestra picos, como Ripple Peak, los LED responden ocho veces; en la prueba no hay sonido</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: give a preset, or begin with beat, bar, tempo, playing or tickN</source>
        <translation>«%1»: indique una plantilla, o empiece por beat, bar, tempo, playing o tickN</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: the address must begin with / and have no blanks or # * , ? [ ] { }</source>
        <translation>«%1»: la dirección debe empezar por / y no tener espacios ni # * , ? [ ] { }</translation>
    </message>
    <message>
        <source>%1: give a type for each value, at most %2 of i, f, d and h</source>
        <translation>%1: indique un tipo para cada valor, como mucho %2 de i, f, d y h</translation>
    </message>
    <message>
        <source>%1: give as many values as types, with commas between them</source>
        <translation>%1: indique tantos valores como tipos, separados por comas</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot;: %3</source>
        <translation>%1: «%2»: %3</translation>
    </message>
</context>
<context>
    <name>shared::AlsaMidiPort</name>
    <message>
        <source>there is no ALSA sequencer: is the module snd-seq loaded?</source>
        <translation>no hay secuenciador ALSA: ¿está cargado el módulo snd-seq?</translation>
    </message>
    <message>
        <source>ALSA port %1</source>
        <translation>puerto ALSA %1</translation>
    </message>
    <message>
        <source>no ALSA port is named %1</source>
        <translation>ningún puerto ALSA se llama %1</translation>
    </message>
</context>
<context>
    <name>shared::ChoicesTurn</name>
    <message>
        <source>%1 is being changed by another program, which does not finish; end that program and try again</source>
        <translation>otro programa está cambiando %1 y no termina; ciérrelo e inténtelo de nuevo</translation>
    </message>
</context>
<context>
    <name>shared::JackMidiPort</name>
    <message>
        <source>no JACK server runs</source>
        <translation>no hay ningún servidor JACK en marcha</translation>
    </message>
    <message>
        <source>the JACK server refuses a port</source>
        <translation>el servidor JACK rechaza un puerto</translation>
    </message>
    <message>
        <source>JACK port %1</source>
        <translation>puerto JACK %1</translation>
    </message>
    <message>
        <source>no JACK port is named %1</source>
        <translation>ningún puerto JACK se llama %1</translation>
    </message>
    <message>
        <source>the JACK server has gone</source>
        <translation>el servidor JACK ha desaparecido</translation>
    </message>
    <message>
        <source>the JACK server hangs</source>
        <translation>el servidor JACK no responde</translation>
    </message>
    <message>
        <source>the JACK port %1 has gone</source>
        <translation>el puerto JACK %1 ha desaparecido</translation>
    </message>
</context>
<context>
    <name>shared::Os2lReceiver</name>
    <message>
        <source>light program %1</source>
        <translation>programa de luces %1</translation>
    </message>
    <message>
        <source>no light program at %1: is OS2L on there, and the port right?</source>
        <translation>ningún programa de luces en %1: ¿está OS2L activado allí y es correcto el puerto?</translation>
    </message>
    <message>
        <source>cannot look for light programs: start avahi-daemon, or give HOST:PORT</source>
        <translation>no se pueden buscar programas de luces: inicie avahi-daemon o indique HOST:PORT</translation>
    </message>
    <message>
        <source>no light program makes itself known in the net, as _os2l._tcp</source>
        <translation>ningún programa de luces se anuncia en la red como _os2l._tcp</translation>
    </message>
</context>
<context>
    <name>shared::OscReceiver</name>
    <message>
        <source>OSC to %1 (%2)</source>
        <translation>OSC a %1 (%2)</translation>
    </message>
    <message>
        <source>OSC to %1 (%2): %3; trying again</source>
        <translation>OSC a %1 (%2): %3; se intenta de nuevo</translation>
    </message>
    <message>
        <source>OSC to %1 (%2): nothing listens there; going on</source>
        <translation>OSC a %1 (%2): allí no escucha nadie; se sigue enviando</translation>
    </message>
    <message>
        <source>sending OSC to %1 (%2), %3</source>
        <translation>enviando OSC a %1 (%2), %3</translation>
    </message>
</context>
<context>
    <name>shared::OscSocket</name>
    <message>
        <source>there is no host &quot;%1&quot;</source>
        <translation>no hay ningún equipo «%1»</translation>
    </message>
    <message>
        <source>the host&apos;s name cannot be resolved</source>
        <translation>no se puede resolver el nombre del equipo</translation>
    </message>
    <message>
        <source>nothing listens there</source>
        <translation>allí no escucha nadie</translation>
    </message>
    <message>
        <source>nobody answers</source>
        <translation>nadie responde</translation>
    </message>
    <message>
        <source>the connection is lost</source>
        <translation>se ha perdido la conexión</translation>
    </message>
    <message>
        <source>it takes nothing</source>
        <translation>no acepta nada</translation>
    </message>
    <message>
        <source>the connection is closed</source>
        <translation>la conexión está cerrada</translation>
    </message>
</context>
<context>
    <name>shared::OscTemplate</name>
    <message>
        <source>the messages are too long</source>
        <translation>los mensajes son demasiado largos</translation>
    </message>
    <message>
        <source>give 1 to %1 messages</source>
        <translation>indique de 1 a %1 mensajes</translation>
    </message>
    <message>
        <source>the numbers of ticks a beat have no common multiple up to %1</source>
        <translation>los números de ticks por beat no tienen múltiplo común hasta %1</translation>
    </message>
</context>
<context>
    <name>shared::WledReceiver</name>
    <message>
        <source>%1 is no address that this machine can reach</source>
        <translation>%1 no es una dirección que este equipo pueda alcanzar</translation>
    </message>
    <message>
        <source>WLED at %1</source>
        <translation>WLED en %1</translation>
    </message>
    <message>
        <source>WLED cannot be reached: %1</source>
        <translation>no se puede alcanzar WLED: %1</translation>
    </message>
</context>
</TS>
