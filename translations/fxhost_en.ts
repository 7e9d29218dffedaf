<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>fxhost::RecentDrawingsDialog</name>
    <message numerus="yes">
        <source>Remove %n drawing(s) from the list?</source>
        <translation>
            <numerusform>Remove %n drawing from the list?</numerusform>
            <numerusform>Remove %n drawings from the list?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n kept drawing(s) will stay.</source>
        <translation>
            <numerusform>%n kept drawing will stay.</numerusform>
            <numerusform>%n kept drawings will stay.</numerusform>
        </translation>
    </message>
</context>
</TS>
