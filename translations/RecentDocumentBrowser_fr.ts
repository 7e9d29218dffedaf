<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>HelpLabel</name>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Preview Recent Documents...</source>
        <translation>Aperçu des documents récents...</translation>
    </message>
    <message>
        <source>Browse through recent documents.</source>
        <translation>Affiche les aperçus des documents récents.</translation>
    </message>
    <message>
        <source>Pin this document to the Recent Documents list</source>
        <translation>Épingler ce document dans la liste des documents récents</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message>
        <source>Unpin this document from the Recent Documents list</source>
        <translation>Désépingler ce document de la liste des documents récents</translation>
    </message>
</context>
<context>
    <name>RecentDocDialog</name>
    <message>
        <source>RecentDocDialog</source>
        <translation>Document</translation>
    </message>
</context>
<context>
    <name>RecentDocMainWindow</name>
    <message>
        <source>RecentDocMainWindow</source>
        <translation>Documents récents</translation>
    </message>
    <message>
        <source>Recent Documents</source>
        <translation>Documents récents</translation>
    </message>
</context>
</TS>
