<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>HelpLabel</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Preview Recent Documents...</source>
        <translation>Zuletzt verwendete Dokumente anzeigen …</translation>
    </message>
    <message>
        <source>Browse through recent documents.</source>
        <translation>Zeigt Bilder der zuletzt verwendeten Dokumente.</translation>
    </message>
    <message>
        <source>Pin this document to the Recent Documents list</source>
        <translation>Dieses Dokument in der Liste der zuletzt verwendeten anheften</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner anzeigen</translation>
    </message>
    <message>
        <source>Unpin this document from the Recent Documents list</source>
        <translation>Dieses Dokument von der Liste der zuletzt verwendeten lösen</translation>
    </message>
</context>
<context>
    <name>RecentDocDialog</name>
    <message>
        <source>RecentDocDialog</source>
        <translation>Dokument</translation>
    </message>
</context>
<context>
    <name>RecentDocMainWindow</name>
    <message>
        <source>RecentDocMainWindow</source>
        <translation>Zuletzt verwendete Dokumente</translation>
    </message>
    <message>
        <source>Recent Documents</source>
        <translation>Zuletzt verwendete Dokumente</translation>
    </message>
</context>
</TS>
