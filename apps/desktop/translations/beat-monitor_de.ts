<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>AdvancedSettingsPanel</name>
    <message>
        <source>Advanced settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Go on with &amp;virtual beats while stopped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Beats go on at the last tempo while the music is stopped.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show when the music is s&amp;topped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The window says so as soon as the music stops.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the &amp;speakers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Two speakers pump with the beat.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Gray mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A quiet, dark look for dark places.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Always on t&amp;op</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The window stays above all others.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Language of the system</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DurationsPanel</name>
    <message>
        <source>Durations</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Average volume:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Tempo:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Stop after:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Normalization:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quiet up to:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Normalization &amp;level:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restore &amp;defaults</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> s</source>
        <comment>seconds</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 to %2 s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 to %2 s of quiet; every start begins with %3 s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 s is stored, outside %2 to %3 s; it stays until you change it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is stored, below 0; it stays until you change it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>silence; 0 to %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 dB of full scale; 0 to %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>InputDevicesModel</name>
    <message>
        <source>%1: records what this computer plays</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>absent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>default</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>monitor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>device (its marks)</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>InputDevicesPanel</name>
    <message>
        <source>Audio inputs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Look a&amp;gain</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Looks for inputs now. Where that takes long, it is not done by itself while sound is recorded.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The chosen input is absent; it is resumed when it returns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No input found; connect one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose an input</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n input(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ManualBeatPanel</name>
    <message>
        <source>Manual beat</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tap (T)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tap with the beat: here, or with the key T.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Half</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Half the tempo.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Double</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Twice the tempo.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Round</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The nearest whole tempo.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Lock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Impose this tempo, or the measured one, until it is released.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tempo by hand</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 BPM</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Locked until released</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n tap(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Lock to impose it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tap with the beat</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outside the profile&apos;s %1 to %2 BPM: %3 BPM holds</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfileCheck</name>
    <message>
        <source>Give the profile a name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>The name has %n character(s) too many.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>There is a profile “%1” already; choose another name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The lowest tempo must be at least 1 BPM.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The highest tempo must be at most %1 BPM.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The lowest tempo must not be above the highest.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The lower edge must not be above the upper edge.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The sensibility must be 0 or more.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfileEditor</name>
    <message>
        <source>Lowest and highest tempo to look for, 1 to %1 BPM</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lower and upper edge of the band to listen to</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A pulse is that many times louder than the average; 0 or more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A name of your choice</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile “%1”</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Tempo:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Band:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Sensibility:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lowest tempo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Highest tempo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lower edge of the band</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upper edge of the band</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> BPM</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Hz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no edge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This profile is built in: changes last until the program ends. To keep them, save them as a new profile under a name of its own.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Use until exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save as ne&amp;w</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfilesModel</name>
    <message>
        <source>%1 (%2 to %3 BPM)</source>
        <comment>name (tempo range)</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, changed until exit</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfilesPanel</name>
    <message>
        <source>%1 (copy)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (copy %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Make a new profile.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>D&amp;uplicate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Make a profile of your own from this one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change name, tempo range, band and sensibility (F2).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Br&amp;ing back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your own profile; it is saved with the settings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Built in: changes last until the program ends. To keep them, duplicate it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, sensibility %2. %3</source>
        <comment>band, sensibility. kind of profile</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove this profile (Del).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A built-in profile cannot be removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” is removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All frequencies</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Up to %1 Hz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>From %1 Hz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 to %2 Hz</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
