<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Kovrel::HistoryWindow</name>
    <message numerus="yes">
        <source>%n captures selected</source>
        <translation>
            <numerusform>%n capture selected</numerusform>
            <numerusform>%n captures selected</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n captures deleted</source>
        <translation>
            <numerusform>%n capture deleted</numerusform>
            <numerusform>%n captures deleted</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Kovrel::ListsModel</name>
    <message numerus="yes">
        <source>%n captures</source>
        <translation>
            <numerusform>%n capture</numerusform>
            <numerusform>%n captures</numerusform>
        </translation>
    </message>
</context>
</TS>
