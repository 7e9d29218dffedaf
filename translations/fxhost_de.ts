<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>CFxDialog</name>
    <message>
        <source>A dialog failed: %1</source>
        <translation>Ein Dialog ist fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>A dialog failed.</source>
        <translation>Ein Dialog ist fehlgeschlagen.</translation>
    </message>
</context>
<context>
    <name>fxhost::AboutWindow</name>
    <message>
        <source>About %1</source>
        <translation>Über %1</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Lizenz</translation>
    </message>
    <message>
        <source>Shows the pictures stored in DWG drawings and loads plug-in modules.</source>
        <translation>Zeigt die in DWG-Zeichnungen gespeicherten Bilder und lädt Zusatzmodule.</translation>
    </message>
    <message>
        <source>Loaded modules:</source>
        <translation>Geladene Module:</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Module interface:</source>
        <translation>Modulschnittstelle:</translation>
    </message>
    <message>
        <source>Qt:</source>
        <translation>Qt:</translation>
    </message>
    <message>
        <source>Licence:</source>
        <translation>Lizenz:</translation>
    </message>
    <message>
        <source>MIT licence, see below</source>
        <translation>MIT-Lizenz, siehe unten</translation>
    </message>
</context>
<context>
    <name>fxhost::AppCommands</name>
    <message>
        <source>No window is visible.</source>
        <translation>Es ist kein Fenster sichtbar.</translation>
    </message>
    <message>
        <source>SCREENSHOT needs the name of the file to write.</source>
        <translation>SCREENSHOT benötigt den Namen der zu schreibenden Datei.</translation>
    </message>
    <message>
        <source>The picture %1 could not be written: %2</source>
        <translation>Das Bild %1 konnte nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>fxhost::CommandLineWidget</name>
    <message>
        <source>Command:</source>
        <translation>Befehl:</translation>
    </message>
    <message>
        <source>Command history</source>
        <translation>Befehlsverlauf</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>%1  and %2 more</source>
        <translation>%1  und %2 weitere</translation>
    </message>
</context>
<context>
    <name>fxhost::CommandRunner</name>
    <message>
        <source>The command %1 failed.</source>
        <translation>Der Befehl %1 ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>There is no command &quot;%1&quot;.</source>
        <translation>Den Befehl „%1“ gibt es nicht.</translation>
    </message>
    <message>
        <source>Did you mean %1?</source>
        <translation>Meinten Sie %1?</translation>
    </message>
    <message>
        <source>The command %1 failed: %2</source>
        <translation>Der Befehl %1 ist fehlgeschlagen: %2</translation>
    </message>
</context>
<context>
    <name>fxhost::DocumentManager</name>
    <message>
        <source>This way of opening is not supported.</source>
        <translation>Diese Art zu öffnen wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>The host failed: %1</source>
        <translation>Das Programm ist fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Drawing%1</source>
        <translation>Zeichnung%1</translation>
    </message>
    <message>
        <source>The drawing &quot;%1&quot; was not opened. %2</source>
        <translation>Die Zeichnung „%1“ wurde nicht geöffnet. %2</translation>
    </message>
    <message>
        <source>No path was given.</source>
        <translation>Es wurde kein Pfad angegeben.</translation>
    </message>
    <message>
        <source>Its disk or server does not respond.</source>
        <translation>Ihr Datenträger oder Server antwortet nicht.</translation>
    </message>
</context>
<context>
    <name>fxhost::DocumentView</name>
    <message>
        <source>No picture is stored in this drawing.</source>
        <translation>In dieser Zeichnung ist kein Bild gespeichert.</translation>
    </message>
    <message>
        <source>A sample: this file contains only a file header and a preview.</source>
        <translation>Ein Beispiel: Diese Datei enthält nur einen Dateikopf und ein Vorschaubild.</translation>
    </message>
    <message>
        <source>This program shows the picture stored in a drawing; it does not render drawings.</source>
        <translation>Dieses Programm zeigt das in einer Zeichnung gespeicherte Bild; es stellt Zeichnungen nicht selbst dar.</translation>
    </message>
    <message>
        <source>New drawing

To see a stored one, choose File &gt; Open, or drop its file here.</source>
        <translation>Neue Zeichnung

Um eine gespeicherte zu sehen, wählen Sie Datei &gt; Öffnen, oder legen Sie ihre Datei hier ab.</translation>
    </message>
</context>
<context>
    <name>fxhost::DrawingFile</name>
    <message>
        <source>The file cannot be read: %1.</source>
        <translation>Die Datei kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>Die Datei existiert nicht.</translation>
    </message>
    <message>
        <source>It is not a regular file.</source>
        <translation>Es ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>The file is not a drawing.</source>
        <translation>Die Datei ist keine Zeichnung.</translation>
    </message>
    <message>
        <source>%1 (%2 format)</source>
        <translation>%1 (Format %2)</translation>
    </message>
</context>
<context>
    <name>fxhost::DrawingWords</name>
    <message>
        <source>New drawing</source>
        <translation>Neue Zeichnung</translation>
    </message>
</context>
<context>
    <name>fxhost::EmptyHint</name>
    <message>
        <source>No drawing is open</source>
        <translation>Keine Zeichnung geöffnet</translation>
    </message>
    <message>
        <source>Choose File &gt; Open, or drop drawing files here.</source>
        <translation>Wählen Sie Datei &gt; Öffnen, oder legen Sie Zeichnungsdateien hier ab.</translation>
    </message>
    <message>
        <source>Drawings that you open are listed in File &gt; Recent Drawings. Later, F4 shows their pictures.</source>
        <translation>Geöffnete Zeichnungen stehen danach unter Datei &gt; Zuletzt verwendete Zeichnungen. F4 zeigt später ihre Bilder.</translation>
    </message>
</context>
<context>
    <name>fxhost::FileProbe</name>
    <message>
        <source>The program %1 does not work: %2.</source>
        <translation>Das Programm %1 funktioniert nicht: %2.</translation>
    </message>
</context>
<context>
    <name>fxhost::FxHost</name>
    <message>
        <source>The directory %1 cannot be created. Settings are not saved.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden. Einstellungen werden nicht gespeichert.</translation>
    </message>
    <message>
        <source>The directory %1 cannot be created. Recent documents are not saved.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden. Zuletzt verwendete Dokumente werden nicht gespeichert.</translation>
    </message>
</context>
<context>
    <name>fxhost::HelpWindow</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vor</translation>
    </message>
    <message>
        <source>&lt;h2&gt;No page&lt;/h2&gt;&lt;p&gt;There is no help page for topic %1.&lt;/p&gt;&lt;p&gt;See the &lt;a href=&quot;%2&quot;&gt;contents&lt;/a&gt;.&lt;/p&gt;</source>
        <translation>&lt;h2&gt;Keine Seite&lt;/h2&gt;&lt;p&gt;Zum Thema %1 gibt es keine Hilfeseite.&lt;/p&gt;&lt;p&gt;Siehe &lt;a href=&quot;%2&quot;&gt;Inhalt&lt;/a&gt;.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
</context>
<context>
    <name>fxhost::HostCommands</name>
    <message>
        <source>The command needs the path of a drawing.</source>
        <translation>Der Befehl benötigt den Pfad einer Zeichnung.</translation>
    </message>
    <message>
        <source>No drawing is open.</source>
        <translation>Es ist keine Zeichnung geöffnet.</translation>
    </message>
    <message>
        <source>A help topic is a whole number.</source>
        <translation>Ein Hilfethema ist eine ganze Zahl.</translation>
    </message>
    <message>
        <source>The delay is a number of milliseconds, at most %1.</source>
        <translation>Die Wartezeit ist eine Zahl von Millisekunden, höchstens %1.</translation>
    </message>
    <message>
        <source>Number of recent documents: %1 at most.</source>
        <translation>Anzahl der zuletzt verwendeten Dokumente: höchstens %1.</translation>
    </message>
    <message>
        <source>The number of recent documents is a whole number from %1 to %2.</source>
        <translation>Die Anzahl der zuletzt verwendeten Dokumente ist eine ganze Zahl von %1 bis %2.</translation>
    </message>
    <message>
        <source>The command needs the path of a module.</source>
        <translation>Der Befehl benötigt den Pfad eines Moduls.</translation>
    </message>
    <message>
        <source>The command needs the name of a module.</source>
        <translation>Der Befehl benötigt den Namen eines Moduls.</translation>
    </message>
    <message>
        <source>The module &quot;%1&quot; is not loaded.</source>
        <translation>Das Modul „%1“ ist nicht geladen.</translation>
    </message>
    <message>
        <source>More than one module is called &quot;%1&quot;.</source>
        <translation>Mehr als ein Modul heißt „%1“.</translation>
    </message>
    <message>
        <source>No module is loaded.</source>
        <translation>Es ist kein Modul geladen.</translation>
    </message>
    <message>
        <source>Loaded: %1.</source>
        <translation>Geladen: %1.</translation>
    </message>
    <message>
        <source>The command needs the path of a drawing, or an open drawing with a file.</source>
        <translation>Der Befehl benötigt den Pfad einer Zeichnung oder eine geöffnete Zeichnung mit einer Datei.</translation>
    </message>
    <message>
        <source>The drawing is not kept. At most %1 can be.</source>
        <translation>Die Zeichnung wird nicht behalten. Höchstens %1 können es.</translation>
    </message>
    <message>
        <source>The drawing &quot;%1&quot; is kept in the list of recent drawings. RECENTREMOVE removes it from the list.</source>
        <translation>Die Zeichnung „%1“ wird in der Liste der zuletzt verwendeten Zeichnungen behalten. RECENTREMOVE entfernt sie aus der Liste.</translation>
    </message>
    <message>
        <source>The drawing &quot;%1&quot; is not in the list of recent drawings.</source>
        <translation>Die Zeichnung „%1“ steht nicht in der Liste der zuletzt verwendeten Zeichnungen.</translation>
    </message>
    <message>
        <source>Drawings removed from the list: %1.</source>
        <translation>Aus der Liste entfernte Zeichnungen: %1.</translation>
    </message>
    <message>
        <source>Drawings that stay in the list because they are kept: %1. RECENTREMOVE removes them.</source>
        <translation>Zeichnungen, die in der Liste bleiben, weil sie behalten werden: %1. RECENTREMOVE entfernt sie.</translation>
    </message>
    <message>
        <source>The drawing &quot;%1&quot; does not exist.</source>
        <translation>Die Zeichnung „%1“ existiert nicht.</translation>
    </message>
</context>
<context>
    <name>fxhost::HostMenus</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>Creates a new drawing.</source>
        <translation>Legt eine neue Zeichnung an.</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>Opens a drawing.</source>
        <translation>Öffnet eine Zeichnung.</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Closes the current drawing.</source>
        <translation>Schließt die aktuelle Zeichnung.</translation>
    </message>
    <message>
        <source>&amp;Recent Drawings</source>
        <translation>&amp;Zuletzt verwendete Zeichnungen</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Closes all drawings and quits the program.</source>
        <translation>Schließt alle Zeichnungen und beendet das Programm.</translation>
    </message>
    <message>
        <source>Preview Recent Documents...</source>
        <translation>Zuletzt verwendete Dokumente anzeigen …</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Cascade</source>
        <translation>Ü&amp;berlappend</translation>
    </message>
    <message>
        <source>Arranges the drawing windows so that they overlap.</source>
        <translation>Ordnet die Zeichnungsfenster überlappend an.</translation>
    </message>
    <message>
        <source>&amp;Tile</source>
        <translation>&amp;Nebeneinander</translation>
    </message>
    <message>
        <source>Arranges the drawing windows side by side.</source>
        <translation>Ordnet die Zeichnungsfenster nebeneinander an.</translation>
    </message>
    <message>
        <source>&amp;Next Drawing</source>
        <translation>N&amp;ächste Zeichnung</translation>
    </message>
    <message>
        <source>Switches to the next drawing window.</source>
        <translation>Wechselt zum nächsten Zeichnungsfenster.</translation>
    </message>
    <message>
        <source>&amp;Previous Drawing</source>
        <translation>&amp;Vorherige Zeichnung</translation>
    </message>
    <message>
        <source>Switches to the previous drawing window.</source>
        <translation>Wechselt zum vorherigen Zeichnungsfenster.</translation>
    </message>
    <message>
        <source>&amp;Open Drawings</source>
        <translation>&amp;Geöffnete Zeichnungen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Shows the help.</source>
        <translation>Zeigt die Hilfe.</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>Shows the help on recent drawings.</source>
        <translation>Zeigt die Hilfe zu den zuletzt verwendeten Zeichnungen.</translation>
    </message>
    <message>
        <source>&amp;About fxhost</source>
        <translation>Ü&amp;ber fxhost</translation>
    </message>
    <message>
        <source>Shows the version, the licence and the loaded modules.</source>
        <translation>Zeigt die Version, die Lizenz und die geladenen Module.</translation>
    </message>
    <message>
        <source>&amp;Manage Recent Drawings...</source>
        <translation>Zuletzt verwendete Zeichnungen ver&amp;walten …</translation>
    </message>
    <message>
        <source>Opens recent drawings, keeps them, or removes them from the list.</source>
        <translation>Öffnet zuletzt verwendete Zeichnungen, behält sie oder entfernt sie aus der Liste.</translation>
    </message>
</context>
<context>
    <name>fxhost::HostSettings</name>
    <message>
        <source>The settings file %1 cannot be read.</source>
        <translation>Die Einstellungsdatei %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The settings file %1 cannot be read. It was renamed to %2, and the default settings are used.</source>
        <translation>Die Einstellungsdatei %1 kann nicht gelesen werden. Sie wurde in %2 umbenannt, und die Standardeinstellungen werden verwendet.</translation>
    </message>
    <message>
        <source>The settings file %1 cannot be written and was left unchanged. Is the disk full?</source>
        <translation>Die Einstellungsdatei %1 kann nicht geschrieben werden und blieb unverändert. Ist der Datenträger voll?</translation>
    </message>
</context>
<context>
    <name>fxhost::LineCompleter</name>
    <message>
        <source>The folder %1 does not respond.</source>
        <translation>Der Ordner %1 antwortet nicht.</translation>
    </message>
</context>
<context>
    <name>fxhost::MainWindow</name>
    <message>
        <source>*Cancelled*</source>
        <translation>*Abgebrochen*</translation>
    </message>
    <message>
        <source>Open Drawing</source>
        <translation>Zeichnung öffnen</translation>
    </message>
    <message>
        <source>There are no recent drawings yet. Open one with OPEN, or drop its file on the window.</source>
        <translation>Es gibt noch keine zuletzt verwendeten Zeichnungen. Öffnen Sie eine mit OPEN, oder legen Sie ihre Datei auf dem Fenster ab.</translation>
    </message>
    <message>
        <source>Drawings, templates and backups</source>
        <translation>Zeichnungen, Vorlagen und Sicherungen</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
</context>
<context>
    <name>fxhost::MenuBuilder</name>
    <message>
        <source>No Drawing Is Open</source>
        <translation>Keine Zeichnung geöffnet</translation>
    </message>
</context>
<context>
    <name>fxhost::ModuleManager</name>
    <message>
        <source>The module &quot;%1&quot; was not loaded. %2</source>
        <translation>Das Modul „%1“ wurde nicht geladen. %2</translation>
    </message>
    <message>
        <source>It is already loaded.</source>
        <translation>Es ist bereits geladen.</translation>
    </message>
    <message>
        <source>The module &quot;%1&quot; is not loaded.</source>
        <translation>Das Modul „%1“ ist nicht geladen.</translation>
    </message>
    <message>
        <source>The module &quot;%1&quot; cannot be unloaded while it is running.</source>
        <translation>Das Modul „%1“ kann nicht entladen werden, während es läuft.</translation>
    </message>
    <message>
        <source>The module &quot;%1&quot; failed while ending. %2</source>
        <translation>Das Modul „%1“ ist beim Beenden fehlgeschlagen. %2</translation>
    </message>
</context>
<context>
    <name>fxhost::ProgramOptions</name>
    <message>
        <source>%1: %2
Try &quot;%1 --help&quot;.</source>
        <translation>%1: %2
Hilfe: „%1 --help“.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a geometry; it is written WxH or WxH+X+Y</source>
        <translation>„%1“ ist keine Geometrie; sie wird WxH oder WxH+X+Y geschrieben</translation>
    </message>
    <message>
        <source>the geometry &quot;%1&quot; is smaller than %2x%3</source>
        <translation>die Geometrie „%1“ ist kleiner als %2x%3</translation>
    </message>
    <message>
        <source>Print this help.</source>
        <translation>Diese Hilfe ausgeben.</translation>
    </message>
    <message>
        <source>Load the module at &lt;path&gt;; can be given more than once. By default, the recent-document browser is loaded.</source>
        <translation>Das Modul unter &lt;path&gt; laden; kann mehrmals angegeben werden. Standardmäßig wird die Übersicht der zuletzt verwendeten Dokumente geladen.</translation>
    </message>
    <message>
        <source>Load no module.</source>
        <translation>Kein Modul laden.</translation>
    </message>
    <message>
        <source>Store settings and the recent-file list in &lt;dir&gt;.</source>
        <translation>Einstellungen und die Liste der zuletzt verwendeten Dateien in &lt;dir&gt; speichern.</translation>
    </message>
    <message>
        <source>Run the commands in &lt;file&gt;, one per line.</source>
        <translation>Die Befehle in &lt;file&gt; ausführen, einen je Zeile.</translation>
    </message>
    <message>
        <source>Log commands, drawings, help requests and modules to &lt;file&gt;.</source>
        <translation>Befehle, Zeichnungen, Hilfeanfragen und Module in &lt;file&gt; protokollieren.</translation>
    </message>
    <message>
        <source>Start without a new drawing.</source>
        <translation>Ohne neue Zeichnung starten.</translation>
    </message>
    <message>
        <source>Size and position of the main window, in pixels.</source>
        <translation>Größe und Lage des Hauptfensters in Pixeln.</translation>
    </message>
    <message>
        <source>Shows the pictures stored in DWG drawings and loads plug-in modules.</source>
        <translation>Zeigt die in DWG-Zeichnungen gespeicherten Bilder und lädt Zusatzmodule.</translation>
    </message>
    <message>
        <source>Drawings to open.</source>
        <translation>Zu öffnende Zeichnungen.</translation>
    </message>
    <message>
        <source>--%1 needs a value</source>
        <translation>--%1 benötigt einen Wert</translation>
    </message>
    <message>
        <source>--%1 is given more than once</source>
        <translation>--%1 ist mehr als einmal angegeben</translation>
    </message>
    <message>
        <source>--module and --no-module exclude each other</source>
        <translation>--module und --no-module schließen einander aus</translation>
    </message>
    <message>
        <source>a drawing needs a name</source>
        <translation>eine Zeichnung benötigt einen Namen</translation>
    </message>
    <message>
        <source>Start another instance. By default, drawings are opened in the running one, unless other options than a profile are given.</source>
        <translation>Ein weiteres Programm starten. Standardmäßig werden Zeichnungen im laufenden geöffnet, sofern außer einem Profil keine anderen Optionen angegeben sind.</translation>
    </message>
</context>
<context>
    <name>fxhost::ReachableRecentFiles</name>
    <message>
        <source>Not shown as recent until the disk or server responds: %1</source>
        <translation>Wird erst wieder als zuletzt verwendet angezeigt, wenn der Datenträger oder Server antwortet: %1</translation>
    </message>
    <message>
        <source>Recent drawings on a disk or server that does not respond may block the program.</source>
        <translation>Zuletzt verwendete Zeichnungen auf einem Datenträger oder Server, der nicht antwortet, können das Programm blockieren.</translation>
    </message>
</context>
<context>
    <name>fxhost::RecentDrawingsDialog</name>
    <message>
        <source>Recent Drawings</source>
        <translation>Zuletzt verwendete Zeichnungen</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Remove &amp;All...</source>
        <translation>&amp;Alle entfernen …</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>&amp;Limit, without kept drawings:</source>
        <translation>&amp;Höchstzahl ohne behaltene Zeichnungen:</translation>
    </message>
    <message>
        <source>Stop &amp;Keeping</source>
        <translation>Nicht mehr &amp;behalten</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>&amp;Behalten</translation>
    </message>
    <message>
        <source>The list is empty. Drawings are listed here after you open them.</source>
        <translation>Die Liste ist leer. Zeichnungen stehen hier, nachdem Sie sie geöffnet haben.</translation>
    </message>
    <message>
        <source>Kept drawings are first in the list and stay until you remove them. Removing a drawing from the list does not delete its file.</source>
        <translation>Behaltene Zeichnungen stehen oben in der Liste, bis Sie sie entfernen. Eine Zeichnung aus der Liste zu entfernen löscht ihre Datei nicht.</translation>
    </message>
    <message>
        <source>At most %1 drawings can be kept.</source>
        <translation>Höchstens %1 Zeichnungen können behalten werden.</translation>
    </message>
    <message numerus="yes">
        <source>Remove %n drawing(s) from the list?</source>
        <translation>
            <numerusform>%n Zeichnung aus der Liste entfernen?</numerusform>
            <numerusform>%n Zeichnungen aus der Liste entfernen?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n kept drawing(s) will stay.</source>
        <translation>
            <numerusform>%n behaltene Zeichnung bleibt.</numerusform>
            <numerusform>%n behaltene Zeichnungen bleiben.</numerusform>
        </translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
</context>
<context>
    <name>fxhost::RecentDrawingsModel</name>
    <message>
        <source>Drawing</source>
        <translation>Zeichnung</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Last Opened</source>
        <translation>Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>%1 (file date)</source>
        <translation>%1 (Dateidatum)</translation>
    </message>
    <message>
        <source>Kept, missing</source>
        <translation>Wird behalten, fehlt</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Fehlt</translation>
    </message>
    <message>
        <source>Kept, does not respond</source>
        <translation>Wird behalten, antwortet nicht</translation>
    </message>
    <message>
        <source>Does not respond</source>
        <translation>Antwortet nicht</translation>
    </message>
    <message>
        <source>Kept</source>
        <translation>Wird behalten</translation>
    </message>
</context>
<context>
    <name>fxhost::RecentFileStore</name>
    <message>
        <source>The list of recent documents, %1, cannot be read: %2. It is not changed until it can be read again.</source>
        <translation>Die Liste der zuletzt verwendeten Dokumente, %1, kann nicht gelesen werden: %2. Sie wird nicht geändert, bis sie wieder gelesen werden kann.</translation>
    </message>
    <message>
        <source>The list of recent documents, %1, is damaged and cannot be renamed. It is not changed, and recent documents are not saved.</source>
        <translation>Die Liste der zuletzt verwendeten Dokumente, %1, ist beschädigt und kann nicht umbenannt werden. Sie wird nicht geändert, und zuletzt verwendete Dokumente werden nicht gespeichert.</translation>
    </message>
    <message>
        <source>The list of recent documents, %1, is damaged. It was renamed to %2.</source>
        <translation>Die Liste der zuletzt verwendeten Dokumente, %1, ist beschädigt. Sie wurde in %2 umbenannt.</translation>
    </message>
    <message>
        <source>The list of recent documents, %1, is in use by another program. The change will be saved with the next one.</source>
        <translation>Die Liste der zuletzt verwendeten Dokumente, %1, wird von einem anderen Programm verwendet. Die Änderung wird mit der nächsten gespeichert.</translation>
    </message>
    <message>
        <source>The list of recent documents, %1, cannot be written: %2.</source>
        <translation>Die Liste der zuletzt verwendeten Dokumente, %1, kann nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>The former list of recent documents, %1, is damaged or cannot be read. Its entries are missing from the list.</source>
        <translation>Die frühere Liste der zuletzt verwendeten Dokumente, %1, ist beschädigt oder kann nicht gelesen werden. Ihre Einträge fehlen in der Liste.</translation>
    </message>
</context>
<context>
    <name>fxhost::RecentFilesMenu</name>
    <message>
        <source>No Recent Documents</source>
        <translation>Keine zuletzt verwendeten Dokumente</translation>
    </message>
</context>
<context>
    <name>fxhost::main</name>
    <message>
        <source>the profile directory %1 cannot be created</source>
        <translation>der Profilordner %1 kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>the log %1 cannot be written: %2</source>
        <translation>das Protokoll %1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>the script %1 cannot be read: %2</source>
        <translation>das Skript %1 kann nicht gelesen werden: %2</translation>
    </message>
</context>
<context>
    <name>sdkhost::Module</name>
    <message>
        <source>There is no such file.</source>
        <translation>Diese Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>It is not a file.</source>
        <translation>Es ist keine Datei.</translation>
    </message>
    <message>
        <source>It is not a module: it does not export odrxGetAPIVersion.</source>
        <translation>Es ist kein Modul: Es exportiert odrxGetAPIVersion nicht.</translation>
    </message>
    <message>
        <source>It is not a module: it does not export odrxCreateModuleObject.</source>
        <translation>Es ist kein Modul: Es exportiert odrxCreateModuleObject nicht.</translation>
    </message>
    <message>
        <source>Its interface version cannot be read: %1</source>
        <translation>Seine Schnittstellenversion kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>It was built for interface version %1, but this host has version %2.</source>
        <translation>Es wurde für die Schnittstellenversion %1 gebaut, dieses Programm hat jedoch Version %2.</translation>
    </message>
    <message>
        <source>Its module object cannot be created: %1</source>
        <translation>Sein Modulobjekt kann nicht erzeugt werden: %1</translation>
    </message>
    <message>
        <source>It does not create a module object.</source>
        <translation>Es erzeugt kein Modulobjekt.</translation>
    </message>
    <message>
        <source>It cannot start: %1</source>
        <translation>Es kann nicht starten: %1</translation>
    </message>
</context>
<context>
    <name>sdkhost::Outcome</name>
    <message>
        <source>an exception without a text</source>
        <translation>eine Ausnahme ohne Text</translation>
    </message>
    <message>
        <source>unknown exception</source>
        <translation>unbekannte Ausnahme</translation>
    </message>
</context>
<context>
    <name>sdkhost::ReactorList</name>
    <message>
        <source>A module failed during a notification: %1</source>
        <translation>Ein Modul ist bei einer Benachrichtigung fehlgeschlagen: %1</translation>
    </message>
</context>
</TS>
