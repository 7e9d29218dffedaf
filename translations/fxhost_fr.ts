<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>CFxDialog</name>
    <message>
        <source>A dialog failed: %1</source>
        <translation>Une boîte de dialogue a échoué : %1</translation>
    </message>
    <message>
        <source>A dialog failed.</source>
        <translation>Une boîte de dialogue a échoué.</translation>
    </message>
</context>
<context>
    <name>fxhost::AboutWindow</name>
    <message>
        <source>About %1</source>
        <translation>À propos de %1</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Texte de la licence</translation>
    </message>
    <message>
        <source>Shows the pictures stored in DWG drawings and loads plug-in modules.</source>
        <translation>Affiche les images enregistrées dans les dessins DWG et charge des modules complémentaires.</translation>
    </message>
    <message>
        <source>Loaded modules:</source>
        <translation>Modules chargés :</translation>
    </message>
    <message>
        <source>none</source>
        <translation>aucun</translation>
    </message>
    <message>
        <source>Module interface:</source>
        <translation>Interface des modules :</translation>
    </message>
    <message>
        <source>Qt:</source>
        <translation>Qt :</translation>
    </message>
    <message>
        <source>Licence:</source>
        <translation>Licence :</translation>
    </message>
    <message>
        <source>MIT licence, see below</source>
        <translation>licence MIT, voir ci-dessous</translation>
    </message>
</context>
<context>
    <name>fxhost::AppCommands</name>
    <message>
        <source>No window is visible.</source>
        <translation>Aucune fenêtre n&apos;est visible.</translation>
    </message>
    <message>
        <source>SCREENSHOT needs the name of the file to write.</source>
        <translation>SCREENSHOT a besoin du nom du fichier à écrire.</translation>
    </message>
    <message>
        <source>The picture %1 could not be written: %2</source>
        <translation>L&apos;image %1 n&apos;a pas pu être écrite : %2</translation>
    </message>
</context>
<context>
    <name>fxhost::CommandLineWidget</name>
    <message>
        <source>Command:</source>
        <translation>Commande :</translation>
    </message>
    <message>
        <source>Command history</source>
        <translation>Historique des commandes</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Commande</translation>
    </message>
    <message>
        <source>%1  and %2 more</source>
        <translation>%1  et %2 autres</translation>
    </message>
</context>
<context>
    <name>fxhost::CommandRunner</name>
    <message>
        <source>The command %1 failed.</source>
        <translation>La commande %1 a échoué.</translation>
    </message>
    <message>
        <source>There is no command &quot;%1&quot;.</source>
        <translation>La commande « %1 » n&apos;existe pas.</translation>
    </message>
    <message>
        <source>Did you mean %1?</source>
        <translation>Vouliez-vous dire %1 ?</translation>
    </message>
    <message>
        <source>The command %1 failed: %2</source>
        <translation>La commande %1 a échoué : %2</translation>
    </message>
</context>
<context>
    <name>fxhost::DocumentManager</name>
    <message>
        <source>This way of opening is not supported.</source>
        <translation>Cette façon d&apos;ouvrir n&apos;est pas prise en charge.</translation>
    </message>
    <message>
        <source>The host failed: %1</source>
        <translation>Le programme a échoué : %1</translation>
    </message>
    <message>
        <source>Drawing%1</source>
        <translation>Dessin%1</translation>
    </message>
    <message>
        <source>The drawing &quot;%1&quot; was not opened. %2</source>
        <translation>Le dessin « %1 » n&apos;a pas été ouvert. %2</translation>
    </message>
    <message>
        <source>No path was given.</source>
        <translation>Aucun chemin n&apos;a été indiqué.</translation>
    </message>
    <message>
        <source>Its disk or server does not respond.</source>
        <translation>Son disque ou son serveur ne répond pas.</translation>
    </message>
</context>
<context>
    <name>fxhost::DocumentView</name>
    <message>
        <source>No picture is stored in this drawing.</source>
        <translation>Aucune image n&apos;est enregistrée dans ce dessin.</translation>
    </message>
    <message>
        <source>A sample: this file contains only a file header and a preview.</source>
        <translation>Un exemple : ce fichier ne contient qu&apos;un en-tête et un aperçu.</translation>
    </message>
    <message>
        <source>This program shows the picture stored in a drawing; it does not render drawings.</source>
        <translation>Ce programme affiche l&apos;image enregistrée dans un dessin ; il n&apos;effectue pas le rendu des dessins.</translation>
    </message>
    <message>
        <source>New drawing

To see a stored one, choose File &gt; Open, or drop its file here.</source>
        <translation>Nouveau dessin

Pour en voir un qui est enregistré, choisissez Fichier &gt; Ouvrir, ou déposez son fichier ici.</translation>
    </message>
</context>
<context>
    <name>fxhost::DrawingFile</name>
    <message>
        <source>The file cannot be read: %1.</source>
        <translation>Le fichier ne peut pas être lu : %1.</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>Le fichier n&apos;existe pas.</translation>
    </message>
    <message>
        <source>It is not a regular file.</source>
        <translation>Ce n&apos;est pas un fichier ordinaire.</translation>
    </message>
    <message>
        <source>The file is not a drawing.</source>
        <translation>Le fichier n&apos;est pas un dessin.</translation>
    </message>
    <message>
        <source>%1 (%2 format)</source>
        <translation>%1 (format %2)</translation>
    </message>
</context>
<context>
    <name>fxhost::DrawingWords</name>
    <message>
        <source>New drawing</source>
        <translation>Nouveau dessin</translation>
    </message>
</context>
<context>
    <name>fxhost::EmptyHint</name>
    <message>
        <source>No drawing is open</source>
        <translation>Aucun dessin n&apos;est ouvert</translation>
    </message>
    <message>
        <source>Choose File &gt; Open, or drop drawing files here.</source>
        <translation>Choisissez Fichier &gt; Ouvrir, ou déposez des fichiers de dessin ici.</translation>
    </message>
    <message>
        <source>Drawings that you open are listed in File &gt; Recent Drawings. Later, F4 shows their pictures.</source>
        <translation>Les dessins que vous ouvrez figurent dans Fichier &gt; Dessins récents. Plus tard, F4 affiche leurs images.</translation>
    </message>
</context>
<context>
    <name>fxhost::FileProbe</name>
    <message>
        <source>The program %1 does not work: %2.</source>
        <translation>Le programme %1 ne fonctionne pas : %2.</translation>
    </message>
</context>
<context>
    <name>fxhost::FxHost</name>
    <message>
        <source>The directory %1 cannot be created. Settings are not saved.</source>
        <translation>Le dossier %1 ne peut pas être créé. Les paramètres ne sont pas enregistrés.</translation>
    </message>
    <message>
        <source>The directory %1 cannot be created. Recent documents are not saved.</source>
        <translation>Le dossier %1 ne peut pas être créé. Les documents récents ne sont pas enregistrés.</translation>
    </message>
</context>
<context>
    <name>fxhost::HelpWindow</name>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Sommaire</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>&lt;h2&gt;No page&lt;/h2&gt;&lt;p&gt;There is no help page for topic %1.&lt;/p&gt;&lt;p&gt;See the &lt;a href=&quot;%2&quot;&gt;contents&lt;/a&gt;.&lt;/p&gt;</source>
        <translation>&lt;h2&gt;Aucune page&lt;/h2&gt;&lt;p&gt;Il n&apos;y a pas de page d&apos;aide pour le sujet %1.&lt;/p&gt;&lt;p&gt;Voir le &lt;a href=&quot;%2&quot;&gt;sommaire&lt;/a&gt;.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Introuvable</translation>
    </message>
</context>
<context>
    <name>fxhost::HostCommands</name>
    <message>
        <source>The command needs the path of a drawing.</source>
        <translation>La commande a besoin du chemin d&apos;un dessin.</translation>
    </message>
    <message>
        <source>No drawing is open.</source>
        <translation>Aucun dessin n&apos;est ouvert.</translation>
    </message>
    <message>
        <source>A help topic is a whole number.</source>
        <translation>Un sujet d&apos;aide est un nombre entier.</translation>
    </message>
    <message>
        <source>The delay is a number of milliseconds, at most %1.</source>
        <translation>Le délai est un nombre de millisecondes, au plus %1.</translation>
    </message>
    <message>
        <source>Number of recent documents: %1 at most.</source>
        <translation>Nombre de documents récents : %1 au plus.</translation>
    </message>
    <message>
        <source>The number of recent documents is a whole number from %1 to %2.</source>
        <translation>Le nombre de documents récents est un nombre entier de %1 à %2.</translation>
    </message>
    <message>
        <source>The command needs the path of a module.</source>
        <translation>La commande a besoin du chemin d&apos;un module.</translation>
    </message>
    <message>
        <source>The command needs the name of a module.</source>
        <translation>La commande a besoin du nom d&apos;un module.</translation>
    </message>
    <message>
        <source>The module &quot;%1&quot; is not loaded.</source>
        <translation>Le module « %1 » n&apos;est pas chargé.</translation>
    </message>
    <message>
        <source>More than one module is called &quot;%1&quot;.</source>
        <translation>Plusieurs modules s&apos;appellent « %1 ».</translation>
    </message>
    <message>
        <source>No module is loaded.</source>
        <translation>Aucun module n&apos;est chargé.</translation>
    </message>
    <message>
        <source>Loaded: %1.</source>
        <translation>Chargés : %1.</translation>
    </message>
    <message>
        <source>The command needs the path of a drawing, or an open drawing with a file.</source>
        <translation>La commande a besoin du chemin d&apos;un dessin, ou d&apos;un dessin ouvert qui a un fichier.</translation>
    </message>
    <message>
        <source>The drawing is not kept. At most %1 can be.</source>
        <translation>Le dessin n&apos;est pas conservé. Au plus %1 peuvent l&apos;être.</translation>
    </message>
    <message>
        <source>The drawing &quot;%1&quot; is kept in the list of recent drawings. RECENTREMOVE removes it from the list.</source>
        <translation>Le dessin « %1 » est conservé dans la liste des dessins récents. RECENTREMOVE le retire de la liste.</translation>
    </message>
    <message>
        <source>The drawing &quot;%1&quot; is not in the list of recent drawings.</source>
        <translation>Le dessin « %1 » n&apos;est pas dans la liste des dessins récents.</translation>
    </message>
    <message>
        <source>Drawings removed from the list: %1.</source>
        <translation>Dessins retirés de la liste : %1.</translation>
    </message>
    <message>
        <source>Drawings that stay in the list because they are kept: %1. RECENTREMOVE removes them.</source>
        <translation>Dessins qui restent dans la liste parce qu&apos;ils sont conservés : %1. RECENTREMOVE les retire.</translation>
    </message>
    <message>
        <source>The drawing &quot;%1&quot; does not exist.</source>
        <translation>Le dessin « %1 » n&apos;existe pas.</translation>
    </message>
</context>
<context>
    <name>fxhost::HostMenus</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Nouveau</translation>
    </message>
    <message>
        <source>Creates a new drawing.</source>
        <translation>Crée un nouveau dessin.</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>&amp;Ouvrir...</translation>
    </message>
    <message>
        <source>Opens a drawing.</source>
        <translation>Ouvre un dessin.</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Closes the current drawing.</source>
        <translation>Ferme le dessin courant.</translation>
    </message>
    <message>
        <source>&amp;Recent Drawings</source>
        <translation>Dessins &amp;récents</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>Closes all drawings and quits the program.</source>
        <translation>Ferme tous les dessins et quitte le programme.</translation>
    </message>
    <message>
        <source>Preview Recent Documents...</source>
        <translation>Aperçu des documents récents...</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>Fe&amp;nêtre</translation>
    </message>
    <message>
        <source>&amp;Cascade</source>
        <translation>En &amp;cascade</translation>
    </message>
    <message>
        <source>Arranges the drawing windows so that they overlap.</source>
        <translation>Dispose les fenêtres de dessin en cascade.</translation>
    </message>
    <message>
        <source>&amp;Tile</source>
        <translation>&amp;Mosaïque</translation>
    </message>
    <message>
        <source>Arranges the drawing windows side by side.</source>
        <translation>Dispose les fenêtres de dessin côte à côte.</translation>
    </message>
    <message>
        <source>&amp;Next Drawing</source>
        <translation>Dessin &amp;suivant</translation>
    </message>
    <message>
        <source>Switches to the next drawing window.</source>
        <translation>Passe à la fenêtre de dessin suivante.</translation>
    </message>
    <message>
        <source>&amp;Previous Drawing</source>
        <translation>Dessin &amp;précédent</translation>
    </message>
    <message>
        <source>Switches to the previous drawing window.</source>
        <translation>Passe à la fenêtre de dessin précédente.</translation>
    </message>
    <message>
        <source>&amp;Open Drawings</source>
        <translation>Dessins &amp;ouverts</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>Shows the help.</source>
        <translation>Affiche l&apos;aide.</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Sommaire</translation>
    </message>
    <message>
        <source>Shows the help on recent drawings.</source>
        <translation>Affiche l&apos;aide sur les dessins récents.</translation>
    </message>
    <message>
        <source>&amp;About fxhost</source>
        <translation>À &amp;propos de fxhost</translation>
    </message>
    <message>
        <source>Shows the version, the licence and the loaded modules.</source>
        <translation>Affiche la version, la licence et les modules chargés.</translation>
    </message>
    <message>
        <source>&amp;Manage Recent Drawings...</source>
        <translation>&amp;Gérer les dessins récents...</translation>
    </message>
    <message>
        <source>Opens recent drawings, keeps them, or removes them from the list.</source>
        <translation>Ouvre des dessins récents, les conserve ou les retire de la liste.</translation>
    </message>
</context>
<context>
    <name>fxhost::HostSettings</name>
    <message>
        <source>The settings file %1 cannot be read.</source>
        <translation>Le fichier de paramètres %1 ne peut pas être lu.</translation>
    </message>
    <message>
        <source>The settings file %1 cannot be read. It was renamed to %2, and the default settings are used.</source>
        <translation>Le fichier de paramètres %1 ne peut pas être lu. Il a été renommé en %2, et les paramètres par défaut sont utilisés.</translation>
    </message>
    <message>
        <source>The settings file %1 cannot be written and was left unchanged. Is the disk full?</source>
        <translation>Le fichier de paramètres %1 ne peut pas être écrit et n&apos;a pas été modifié. Le disque est-il plein ?</translation>
    </message>
</context>
<context>
    <name>fxhost::LineCompleter</name>
    <message>
        <source>The folder %1 does not respond.</source>
        <translation>Le dossier %1 ne répond pas.</translation>
    </message>
</context>
<context>
    <name>fxhost::MainWindow</name>
    <message>
        <source>*Cancelled*</source>
        <translation>*Annulé*</translation>
    </message>
    <message>
        <source>Open Drawing</source>
        <translation>Ouvrir un dessin</translation>
    </message>
    <message>
        <source>There are no recent drawings yet. Open one with OPEN, or drop its file on the window.</source>
        <translation>Il n&apos;y a pas encore de dessin récent. Ouvrez-en un avec OPEN, ou déposez son fichier sur la fenêtre.</translation>
    </message>
    <message>
        <source>Drawings, templates and backups</source>
        <translation>Dessins, modèles et sauvegardes</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Tous les fichiers</translation>
    </message>
</context>
<context>
    <name>fxhost::MenuBuilder</name>
    <message>
        <source>No Drawing Is Open</source>
        <translation>Aucun dessin ouvert</translation>
    </message>
</context>
<context>
    <name>fxhost::ModuleManager</name>
    <message>
        <source>The module &quot;%1&quot; was not loaded. %2</source>
        <translation>Le module « %1 » n&apos;a pas été chargé. %2</translation>
    </message>
    <message>
        <source>It is already loaded.</source>
        <translation>Il est déjà chargé.</translation>
    </message>
    <message>
        <source>The module &quot;%1&quot; is not loaded.</source>
        <translation>Le module « %1 » n&apos;est pas chargé.</translation>
    </message>
    <message>
        <source>The module &quot;%1&quot; cannot be unloaded while it is running.</source>
        <translation>Le module « %1 » ne peut pas être déchargé pendant son exécution.</translation>
    </message>
    <message>
        <source>The module &quot;%1&quot; failed while ending. %2</source>
        <translation>Le module « %1 » a échoué en se terminant. %2</translation>
    </message>
</context>
<context>
    <name>fxhost::ProgramOptions</name>
    <message>
        <source>%1: %2
Try &quot;%1 --help&quot;.</source>
        <translation>%1 : %2
Aide : « %1 --help ».</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a geometry; it is written WxH or WxH+X+Y</source>
        <translation>« %1 » n&apos;est pas une géométrie ; elle s&apos;écrit WxH ou WxH+X+Y</translation>
    </message>
    <message>
        <source>the geometry &quot;%1&quot; is smaller than %2x%3</source>
        <translation>la géométrie « %1 » est plus petite que %2x%3</translation>
    </message>
    <message>
        <source>Print this help.</source>
        <translation>Afficher cette aide.</translation>
    </message>
    <message>
        <source>Load the module at &lt;path&gt;; can be given more than once. By default, the recent-document browser is loaded.</source>
        <translation>Charger le module &lt;path&gt; ; peut être indiqué plusieurs fois. Par défaut, l&apos;explorateur des documents récents est chargé.</translation>
    </message>
    <message>
        <source>Load no module.</source>
        <translation>Ne charger aucun module.</translation>
    </message>
    <message>
        <source>Store settings and the recent-file list in &lt;dir&gt;.</source>
        <translation>Enregistrer les paramètres et la liste des fichiers récents dans &lt;dir&gt;.</translation>
    </message>
    <message>
        <source>Run the commands in &lt;file&gt;, one per line.</source>
        <translation>Exécuter les commandes de &lt;file&gt;, une par ligne.</translation>
    </message>
    <message>
        <source>Log commands, drawings, help requests and modules to &lt;file&gt;.</source>
        <translation>Consigner les commandes, dessins, demandes d&apos;aide et modules dans &lt;file&gt;.</translation>
    </message>
    <message>
        <source>Start without a new drawing.</source>
        <translation>Démarrer sans nouveau dessin.</translation>
    </message>
    <message>
        <source>Size and position of the main window, in pixels.</source>
        <translation>Taille et position de la fenêtre principale, en pixels.</translation>
    </message>
    <message>
        <source>Shows the pictures stored in DWG drawings and loads plug-in modules.</source>
        <translation>Affiche les images enregistrées dans les dessins DWG et charge des modules complémentaires.</translation>
    </message>
    <message>
        <source>Drawings to open.</source>
        <translation>Dessins à ouvrir.</translation>
    </message>
    <message>
        <source>--%1 needs a value</source>
        <translation>--%1 a besoin d&apos;une valeur</translation>
    </message>
    <message>
        <source>--%1 is given more than once</source>
        <translation>--%1 est indiqué plusieurs fois</translation>
    </message>
    <message>
        <source>--module and --no-module exclude each other</source>
        <translation>--module et --no-module s&apos;excluent</translation>
    </message>
    <message>
        <source>a drawing needs a name</source>
        <translation>un dessin a besoin d&apos;un nom</translation>
    </message>
    <message>
        <source>Start another instance. By default, drawings are opened in the running one, unless other options than a profile are given.</source>
        <translation>Démarrer une autre instance. Par défaut, les dessins sont ouverts dans celle qui est en cours, sauf si d&apos;autres options qu&apos;un profil sont indiquées.</translation>
    </message>
</context>
<context>
    <name>fxhost::ReachableRecentFiles</name>
    <message>
        <source>Not shown as recent until the disk or server responds: %1</source>
        <translation>N&apos;apparaît plus parmi les documents récents tant que le disque ou le serveur ne répond pas : %1</translation>
    </message>
    <message>
        <source>Recent drawings on a disk or server that does not respond may block the program.</source>
        <translation>Des dessins récents sur un disque ou un serveur qui ne répond pas peuvent bloquer le programme.</translation>
    </message>
</context>
<context>
    <name>fxhost::RecentDrawingsDialog</name>
    <message>
        <source>Recent Drawings</source>
        <translation>Dessins récents</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Ouvrir</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Retirer</translation>
    </message>
    <message>
        <source>Remove &amp;All...</source>
        <translation>&amp;Tout retirer...</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>Annuler la &amp;modification</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>&amp;Limit, without kept drawings:</source>
        <translation>&amp;Limite, sans les dessins conservés :</translation>
    </message>
    <message>
        <source>Stop &amp;Keeping</source>
        <translation>Ne plus &amp;conserver</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>&amp;Conserver</translation>
    </message>
    <message>
        <source>The list is empty. Drawings are listed here after you open them.</source>
        <translation>La liste est vide. Les dessins y figurent après que vous les avez ouverts.</translation>
    </message>
    <message>
        <source>Kept drawings are first in the list and stay until you remove them. Removing a drawing from the list does not delete its file.</source>
        <translation>Les dessins conservés sont en tête de la liste jusqu&apos;à ce que vous les retiriez. Retirer un dessin de la liste n&apos;efface pas son fichier.</translation>
    </message>
    <message>
        <source>At most %1 drawings can be kept.</source>
        <translation>Au plus %1 dessins peuvent être conservés.</translation>
    </message>
    <message numerus="yes">
        <source>Remove %n drawing(s) from the list?</source>
        <translation>
            <numerusform>Retirer %n dessin de la liste ?</numerusform>
            <numerusform>Retirer %n dessins de la liste ?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n kept drawing(s) will stay.</source>
        <translation>
            <numerusform>%n dessin conservé reste.</numerusform>
            <numerusform>%n dessins conservés restent.</numerusform>
        </translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
</context>
<context>
    <name>fxhost::RecentDrawingsModel</name>
    <message>
        <source>Drawing</source>
        <translation>Dessin</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>Last Opened</source>
        <translation>Dernière ouverture</translation>
    </message>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
    <message>
        <source>%1 (file date)</source>
        <translation>%1 (date du fichier)</translation>
    </message>
    <message>
        <source>Kept, missing</source>
        <translation>Conservé, introuvable</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Introuvable</translation>
    </message>
    <message>
        <source>Kept, does not respond</source>
        <translation>Conservé, ne répond pas</translation>
    </message>
    <message>
        <source>Does not respond</source>
        <translation>Ne répond pas</translation>
    </message>
    <message>
        <source>Kept</source>
        <translation>Conservé</translation>
    </message>
</context>
<context>
    <name>fxhost::RecentFileStore</name>
    <message>
        <source>The list of recent documents, %1, cannot be read: %2. It is not changed until it can be read again.</source>
        <translation>La liste des documents récents, %1, ne peut pas être lue : %2. Elle n&apos;est pas modifiée tant qu&apos;elle ne peut pas être relue.</translation>
    </message>
    <message>
        <source>The list of recent documents, %1, is damaged and cannot be renamed. It is not changed, and recent documents are not saved.</source>
        <translation>La liste des documents récents, %1, est endommagée et ne peut pas être renommée. Elle n&apos;est pas modifiée, et les documents récents ne sont pas enregistrés.</translation>
    </message>
    <message>
        <source>The list of recent documents, %1, is damaged. It was renamed to %2.</source>
        <translation>La liste des documents récents, %1, est endommagée. Elle a été renommée en %2.</translation>
    </message>
    <message>
        <source>The list of recent documents, %1, is in use by another program. The change will be saved with the next one.</source>
        <translation>La liste des documents récents, %1, est utilisée par un autre programme. La modification sera enregistrée avec la suivante.</translation>
    </message>
    <message>
        <source>The list of recent documents, %1, cannot be written: %2.</source>
        <translation>La liste des documents récents, %1, ne peut pas être écrite : %2.</translation>
    </message>
    <message>
        <source>The former list of recent documents, %1, is damaged or cannot be read. Its entries are missing from the list.</source>
        <translation>L&apos;ancienne liste des documents récents, %1, est endommagée ou ne peut pas être lue. Ses entrées manquent dans la liste.</translation>
    </message>
</context>
<context>
    <name>fxhost::RecentFilesMenu</name>
    <message>
        <source>No Recent Documents</source>
        <translation>Aucun document récent</translation>
    </message>
</context>
<context>
    <name>fxhost::main</name>
    <message>
        <source>the profile directory %1 cannot be created</source>
        <translation>le dossier de profil %1 ne peut pas être créé</translation>
    </message>
    <message>
        <source>the log %1 cannot be written: %2</source>
        <translation>le journal %1 ne peut pas être écrit : %2</translation>
    </message>
    <message>
        <source>the script %1 cannot be read: %2</source>
        <translation>le script %1 ne peut pas être lu : %2</translation>
    </message>
</context>
<context>
    <name>sdkhost::Module</name>
    <message>
        <source>There is no such file.</source>
        <translation>Ce fichier n&apos;existe pas.</translation>
    </message>
    <message>
        <source>It is not a file.</source>
        <translation>Ce n&apos;est pas un fichier.</translation>
    </message>
    <message>
        <source>It is not a module: it does not export odrxGetAPIVersion.</source>
        <translation>Ce n&apos;est pas un module : il n&apos;exporte pas odrxGetAPIVersion.</translation>
    </message>
    <message>
        <source>It is not a module: it does not export odrxCreateModuleObject.</source>
        <translation>Ce n&apos;est pas un module : il n&apos;exporte pas odrxCreateModuleObject.</translation>
    </message>
    <message>
        <source>Its interface version cannot be read: %1</source>
        <translation>Sa version d&apos;interface ne peut pas être lue : %1</translation>
    </message>
    <message>
        <source>It was built for interface version %1, but this host has version %2.</source>
        <translation>Il a été construit pour la version d&apos;interface %1, mais ce programme a la version %2.</translation>
    </message>
    <message>
        <source>Its module object cannot be created: %1</source>
        <translation>Son objet de module ne peut pas être créé : %1</translation>
    </message>
    <message>
        <source>It does not create a module object.</source>
        <translation>Il ne crée pas d&apos;objet de module.</translation>
    </message>
    <message>
        <source>It cannot start: %1</source>
        <translation>Il ne peut pas démarrer : %1</translation>
    </message>
</context>
<context>
    <name>sdkhost::Outcome</name>
    <message>
        <source>an exception without a text</source>
        <translation>une exception sans texte</translation>
    </message>
    <message>
        <source>unknown exception</source>
        <translation>exception inconnue</translation>
    </message>
</context>
<context>
    <name>sdkhost::ReactorList</name>
    <message>
        <source>A module failed during a notification: %1</source>
        <translation>Un module a échoué lors d&apos;une notification : %1</translation>
    </message>
</context>
</TS>
