<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>InputDevicesPanel</name>
    <message numerus="yes">
        <source>%n input(s)</source>
        <translation>
            <numerusform>%n input</numerusform>
            <numerusform>%n inputs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ProfileCheck</name>
    <message numerus="yes">
        <source>The name has %n character(s) too many.</source>
        <translation>
            <numerusform>The name has %n character too many.</numerusform>
            <numerusform>The name has %n characters too many.</numerusform>
        </translation>
    </message>
</context>
</TS>
