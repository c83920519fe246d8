<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="de">
<context>
    <name>ActionStarter</name>
    <message>
        <source>Die gewählte Zeile gehört zu keiner Aktion.</source>
        <translation>The chosen row belongs to no action.</translation>
    </message>
    <message>
        <source>Eine Aktion startet nur online.</source>
        <translation>An action starts online only.</translation>
    </message>
    <message>
        <source>Das Gerät ist auf nur lesen gestellt.</source>
        <translation>The device is set to read only.</translation>
    </message>
    <message>
        <source>Die Aktion läuft.</source>
        <translation>The action is running.</translation>
    </message>
    <message>
        <source>Die Zugriffsstufe reicht nicht aus.</source>
        <translation>The access level is too low.</translation>
    </message>
    <message>
        <source>Die Aktion startet nicht, solange die Achse eingeschaltet ist.</source>
        <translation>The action does not start while the axis is enabled.</translation>
    </message>
    <message>
        <source>im Zustand des Antriebs nicht startbar</source>
        <translation>cannot be started in the drive&apos;s state</translation>
    </message>
    <message>
        <source>nicht gestartet</source>
        <translation>not started</translation>
    </message>
    <message>
        <source>ob sie gestartet wurde, ist nicht bekannt</source>
        <translation>whether it was started is not known</translation>
    </message>
    <message>
        <source>endete vor 100 % - %1</source>
        <translation>ended before 100 % - %1</translation>
    </message>
    <message>
        <source>nicht mehr online; wie sie endet, ist nicht bekannt</source>
        <translation>no longer online; how it ends is not known</translation>
    </message>
    <message>
        <source>den Parameter gibt es nicht mehr; wie sie endet, ist nicht bekannt</source>
        <translation>the parameter is gone; how it ends is not known</translation>
    </message>
</context>
<context>
    <name>ComparisonPage</name>
    <message>
        <source>Alle Werte von &quot;%1&quot;</source>
        <translation>All values of &quot;%1&quot;</translation>
    </message>
    <message>
        <source>%1: kein Unterschied</source>
        <translation>%1: no difference</translation>
    </message>
    <message>
        <source>%1: was sich ändert</source>
        <translation>%1: what changes</translation>
    </message>
    <message>
        <source>Noch kein Vergleich. Ein Snapshot hält alle Werte fest; ausgewählte stehen hier nebeneinander.</source>
        <translation>No comparison yet. A snapshot records all values; chosen ones stand here side by side.</translation>
    </message>
    <message>
        <source>%1: kein Unterschied, der zu sehen ist. Was sich unterscheidet, liest sich gleich, oder die Zugriffsstufe reicht dafür nicht aus.</source>
        <translation>%1: no difference that can be seen. What differs reads the same, or the access level is too low for it.</translation>
    </message>
</context>
<context>
    <name>DelayedProgress</name>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>DeskActions</name>
    <message>
        <source>&amp;Gerät öffnen …</source>
        <translation>&amp;Open device …</translation>
    </message>
    <message>
        <source>Projekt &amp;laden …</source>
        <translation>&amp;Load project …</translation>
    </message>
    <message>
        <source>Projekt &amp;speichern</source>
        <translation>&amp;Save project</translation>
    </message>
    <message>
        <source>Projekt speichern &amp;in …</source>
        <translation>Save project &amp;in …</translation>
    </message>
    <message>
        <source>&amp;Beenden</source>
        <translation>&amp;Quit</translation>
    </message>
    <message>
        <source>&amp;Rückgängig</source>
        <translation>&amp;Undo</translation>
    </message>
    <message>
        <source>&amp;Wiederholen</source>
        <translation>&amp;Redo</translation>
    </message>
    <message>
        <source>&amp;Suchen</source>
        <translation>&amp;Search</translation>
    </message>
    <message>
        <source>Wert ä&amp;ndern</source>
        <translation>&amp;Change value</translation>
    </message>
    <message>
        <source>&amp;Snapshot …</source>
        <translation>&amp;Snapshot …</translation>
    </message>
    <message>
        <source>&amp;Vergleichen</source>
        <translation>&amp;Compare</translation>
    </message>
    <message>
        <source>&amp;Entfernen</source>
        <translation>&amp;Remove</translation>
    </message>
    <message>
        <source>&amp;Online</source>
        <translation>&amp;Online</translation>
    </message>
    <message>
        <source>&amp;Nur lesen</source>
        <translation>&amp;Read only</translation>
    </message>
    <message>
        <source>&amp;Parameter</source>
        <translation>&amp;Parameters</translation>
    </message>
    <message>
        <source>&amp;Vergleich</source>
        <translation>&amp;Comparison</translation>
    </message>
    <message>
        <source>&amp;Snapshots</source>
        <translation>&amp;Snapshots</translation>
    </message>
    <message>
        <source>&amp;Meldungen</source>
        <translation>&amp;Messages</translation>
    </message>
    <message>
        <source>Meldungen &amp;leeren</source>
        <translation>C&amp;lear messages</translation>
    </message>
    <message>
        <source>&amp;Antrieb …</source>
        <translation>&amp;Drive …</translation>
    </message>
    <message>
        <source>A&amp;ktion starten</source>
        <translation>S&amp;tart action</translation>
    </message>
    <message>
        <source>Alle Werte unter einem Namen festhalten (Strg+T)</source>
        <translation>Keep all values under a name (Ctrl+T)</translation>
    </message>
    <message>
        <source>Die angekreuzten Snapshots nebeneinander zeigen (Strg+D)</source>
        <translation>Show the checked snapshots side by side (Ctrl+D)</translation>
    </message>
    <message>
        <source>Den gewählten Snapshot entfernen (Entf in der Liste)</source>
        <translation>Remove the chosen snapshot (Del in the list)</translation>
    </message>
</context>
<context>
    <name>DeskMenu</name>
    <message>
        <source>&amp;Datei</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Bearbeiten</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>Ge&amp;rät</source>
        <translation>&amp;Device</translation>
    </message>
    <message>
        <source>&amp;Snapshots</source>
        <translation>&amp;Snapshots</translation>
    </message>
    <message>
        <source>&amp;Ansicht</source>
        <translation>&amp;View</translation>
    </message>
</context>
<context>
    <name>DeskOptions</name>
    <message>
        <source>Werte eines Antriebs ansehen, ändern und vergleichen.</source>
        <translation>View, change and compare the values of a drive.</translation>
    </message>
    <message>
        <source>diese Hilfe</source>
        <translation>this help</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Gerätebeschreibung, oder der Name einer mitgelieferten</source>
        <translation>device description, or the name of a shipped one</translation>
    </message>
    <message>
        <source>DATEI</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>Projektordner; ohne ihn gelten die Defaultwerte</source>
        <translation>project folder; without it the defaults hold</translation>
    </message>
    <message>
        <source>ORDNER</source>
        <translation>FOLDER</translation>
    </message>
    <message>
        <source>Sprache der Texte</source>
        <translation>language of the texts</translation>
    </message>
    <message>
        <source>Zugriffsstufe von 0 (Bediener) bis 6 (Hersteller)</source>
        <translation>access level from 0 (operator) to 6 (maker)</translation>
    </message>
    <message>
        <source>kein Fenster öffnen, sondern sein Bild in diese Datei schreiben</source>
        <translation>open no window, write its picture to this file</translation>
    </message>
    <message>
        <source>Größe des Bilds, sonst 1280x800</source>
        <translation>size of the picture, otherwise 1280x800</translation>
    </message>
    <message>
        <source>BREITExHÖHE</source>
        <translation>WIDTHxHEIGHT</translation>
    </message>
    <message>
        <source>was das Bild zeigt; comparison vergleicht vor und nach --write</source>
        <translation>what the picture shows; comparison compares before and after --write</translation>
    </message>
    <message>
        <source>im Bild gesuchter Text</source>
        <translation>text searched for in the picture</translation>
    </message>
    <message>
        <source>TEXT</source>
        <translation>TEXT</translation>
    </message>
    <message>
        <source>vor dem Bild geschriebener Wert, beliebig oft</source>
        <translation>value written before the picture, any number of times</translation>
    </message>
    <message>
        <source>ADRESSE=TEXT</source>
        <translation>ADDRESS=TEXT</translation>
    </message>
    <message>
        <source>im Bild in sein Feld getippter Wert</source>
        <translation>value typed into its field in the picture</translation>
    </message>
    <message>
        <source>unerwartet: &quot;%1&quot;</source>
        <translation>unexpected: &quot;%1&quot;</translation>
    </message>
    <message>
        <source>--project braucht --device</source>
        <translation>--project needs --device</translation>
    </message>
    <message>
        <source>--lang nimmt de oder en</source>
        <translation>--lang takes de or en</translation>
    </message>
    <message>
        <source>--access-level nimmt eine Zahl von 0 bis 6</source>
        <translation>--access-level takes a number from 0 to 6</translation>
    </message>
    <message>
        <source>--size nimmt Breite und Höhe, zum Beispiel 1280x800</source>
        <translation>--size takes width and height, for example 1280x800</translation>
    </message>
    <message>
        <source>--show nimmt parameters oder comparison</source>
        <translation>--show takes parameters or comparison</translation>
    </message>
    <message>
        <source>erwartet wird ADRESSE=TEXT, zum Beispiel 1.H00=15</source>
        <translation>ADDRESS=TEXT is expected, for example 1.H00=15</translation>
    </message>
    <message>
        <source>Antrieb, mit dem F9 verbindet; ohne Anschluss 502</source>
        <translation>drive that F9 connects to; without port 502</translation>
    </message>
    <message>
        <source>ADRESSE:ANSCHLUSS</source>
        <translation>ADDRESS:PORT</translation>
    </message>
    <message>
        <source>--drive nimmt Adresse und Anschluss, zum Beispiel 10.0.0.7:502</source>
        <translation>--drive takes address and port, for example 10.0.0.7:502</translation>
    </message>
    <message>
        <source>anderes Gerät, dessen Defaultwerte im Vergleich vorn stehen</source>
        <translation>another device, whose defaults stand first in the comparison</translation>
    </message>
    <message>
        <source>--earlier braucht --device</source>
        <translation>--earlier needs --device</translation>
    </message>
</context>
<context>
    <name>DeskPlaces</name>
    <message>
        <source>Parameter</source>
        <translation>Parameters</translation>
    </message>
    <message>
        <source>Vergleich</source>
        <translation>Comparison</translation>
    </message>
    <message>
        <source>Snapshots</source>
        <translation>Snapshots</translation>
    </message>
    <message>
        <source>Meldungen</source>
        <translation>Messages</translation>
    </message>
</context>
<context>
    <name>DeskSession</name>
    <message>
        <source>Gerät öffnen</source>
        <translation>Open device</translation>
    </message>
    <message>
        <source>Projekt laden</source>
        <translation>Load project</translation>
    </message>
    <message>
        <source>Projekt speichern</source>
        <translation>Save project</translation>
    </message>
    <message>
        <source>gespeichert und zurückgelesen</source>
        <translation>saved and read back</translation>
    </message>
    <message>
        <source>Das Projekt enthält, was dieses Gerät nicht kennt; es ginge verloren.</source>
        <translation>The project holds what this device does not know; it would be lost.</translation>
    </message>
</context>
<context>
    <name>DeskStatus</name>
    <message>
        <source>online</source>
        <translation>online</translation>
    </message>
    <message>
        <source>verbindet …</source>
        <translation>connecting …</translation>
    </message>
    <message>
        <source>offline</source>
        <translation>offline</translation>
    </message>
    <message>
        <source>, nur lesen</source>
        <translation>, read only</translation>
    </message>
    <message>
        <source>%1 von %2 Werten</source>
        <translation>%1 of %2 values</translation>
    </message>
    <message>
        <source>Kein Gerät offen: Strg+O öffnet eine Gerätebeschreibung</source>
        <translation>No device is open: Ctrl+O opens a device description</translation>
    </message>
    <message>
        <source>liest %1 von %2 Werten …</source>
        <translation>reading %1 of %2 values …</translation>
    </message>
    <message>
        <source>&amp;Rückgängig</source>
        <translation>&amp;Undo</translation>
    </message>
    <message>
        <source>&amp;Rückgängig: %1</source>
        <translation>&amp;Undo: %1</translation>
    </message>
    <message>
        <source>&amp;Wiederholen</source>
        <translation>&amp;Redo</translation>
    </message>
    <message>
        <source>&amp;Wiederholen: %1</source>
        <translation>&amp;Redo: %1</translation>
    </message>
</context>
<context>
    <name>DeskWindow</name>
    <message>
        <source>Snapshots vergleichen</source>
        <translation>Compare snapshots</translation>
    </message>
</context>
<context>
    <name>DriveChoice</name>
    <message>
        <source>keine Adresse eines Antriebs, wie zum Beispiel 10.0.0.7:502</source>
        <translation>no address of a drive, as for example 10.0.0.7:502</translation>
    </message>
</context>
<context>
    <name>MessageListModel</name>
    <message>
        <source>Hinweis</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Warnung</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>Fehler</source>
        <translation>Error</translation>
    </message>
</context>
<context>
    <name>MessagePane</name>
    <message>
        <source>Die Meldung gehört zu einem Gerät, das nicht mehr offen ist.</source>
        <translation>The message belongs to a device that is no longer open.</translation>
    </message>
</context>
<context>
    <name>OnlineDriveLink</name>
    <message>
        <source>Vom Antrieb %1 gelesen: %2</source>
        <translation>Read from the drive %1: %2</translation>
    </message>
    <message>
        <source>und %1 weitere Werte nicht gelesen</source>
        <translation>and %1 further values not read</translation>
    </message>
    <message>
        <source>Lesen vom Antrieb %1 abgebrochen: %2 von %3 Werten sind gelesen, die anderen sind die von vorher</source>
        <translation>Reading from drive %1 cancelled: %2 of %3 values are read, the others are those from before</translation>
    </message>
</context>
<context>
    <name>OnlineSwitch</name>
    <message>
        <source>Nicht mehr online: %1</source>
        <translation>No longer online: %1</translation>
    </message>
</context>
<context>
    <name>ReadingProgress</name>
    <message>
        <source>Vom Antrieb gelesen</source>
        <translation>Read from the drive</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Geht offline</source>
        <translation>Goes offline</translation>
    </message>
</context>
<context>
    <name>Screenshot</name>
    <message>
        <source>das Bild &quot;%1&quot; kann nicht geschrieben werden</source>
        <translation>the picture &quot;%1&quot; cannot be written</translation>
    </message>
    <message>
        <source>Vorher</source>
        <translation>Before</translation>
    </message>
    <message>
        <source>Nachher</source>
        <translation>After</translation>
    </message>
    <message>
        <source>%1 nimmt &quot;%2&quot; nicht an</source>
        <translation>%1 does not take &quot;%2&quot;</translation>
    </message>
    <message>
        <source>%1 hat kein Feld zum Tippen</source>
        <translation>%1 has no field to type into</translation>
    </message>
    <message>
        <source>%1 ist nicht zu sehen</source>
        <translation>%1 is not visible</translation>
    </message>
</context>
<context>
    <name>SelectorBar</name>
    <message>
        <source>Auswahl</source>
        <translation>Selection</translation>
    </message>
    <message>
        <source>Suchen in Adresse, Name, Einheit und Wert</source>
        <translation>Search in address, name, unit and value</translation>
    </message>
    <message>
        <source>A&amp;chse</source>
        <translation>A&amp;xis</translation>
    </message>
    <message>
        <source>Z&amp;ugriffsstufe</source>
        <translation>A&amp;ccess level</translation>
    </message>
    <message>
        <source>S&amp;prache</source>
        <translation>&amp;Language</translation>
    </message>
    <message>
        <source>alle</source>
        <translation>all</translation>
    </message>
    <message>
        <source>0 Bediener</source>
        <translation>0 operator</translation>
    </message>
    <message>
        <source>%1 Hersteller</source>
        <translation>%1 maker</translation>
    </message>
    <message>
        <source>Zeilen, die jedes der Wörter enthalten (Strg+F); Escape zeigt alle</source>
        <translation>Rows that hold each of the words (Ctrl+F); Escape shows all</translation>
    </message>
    <message>
        <source>Zeilen einer Achse; globale Parameter gehören zu jeder</source>
        <translation>Rows of one axis; global parameters belong to each</translation>
    </message>
    <message>
        <source>Was zu sehen ist und was geschrieben werden kann</source>
        <translation>What can be seen and what can be written</translation>
    </message>
    <message>
        <source>Sprache der Texte</source>
        <translation>Language of the texts</translation>
    </message>
</context>
<context>
    <name>SessionCommands</name>
    <message>
        <source>Snapshot aufnehmen</source>
        <translation>Take snapshot</translation>
    </message>
</context>
<context>
    <name>SnapshotListModel</name>
    <message>
        <source>Snapshot %1</source>
        <translation>Snapshot %1</translation>
    </message>
    <message>
        <source>%1, von %2</source>
        <translation>%1, of %2</translation>
    </message>
</context>
<context>
    <name>TableCells</name>
    <message>
        <source>Adresse</source>
        <translation>Address</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Wert</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>Einheit</source>
        <translation>Unit</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Default</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Änderungsmarke</source>
        <translation>Change tag</translation>
    </message>
    <message>
        <source>weicht vom Default ab</source>
        <translation>differs from the default</translation>
    </message>
    <message>
        <source>startet eine Aktion des Antriebs</source>
        <translation>starts an action of the drive</translation>
    </message>
</context>
<context>
    <name>TableNavigation</name>
    <message>
        <source>Es ist kein Gerät offen.</source>
        <translation>No device is open.</translation>
    </message>
    <message>
        <source>%1 gibt es in diesem Gerät nicht.</source>
        <translation>This device has no %1.</translation>
    </message>
    <message>
        <source>%1 ist erst ab Zugriffsstufe %2 zu sehen.</source>
        <translation>%1 can be seen from access level %2 on.</translation>
    </message>
    <message>
        <source>%1 ist zurzeit ausgeblendet.</source>
        <translation>%1 is hidden at present.</translation>
    </message>
    <message>
        <source>Der Vergleich gehört zu %1; offen ist %2.</source>
        <translation>The comparison belongs to %1; %2 is open.</translation>
    </message>
</context>
<context>
    <name>ValueWriter</name>
    <message>
        <source>Das Gerät hat den Parameter nicht mehr.</source>
        <translation>The device no longer has the parameter.</translation>
    </message>
</context>
<context>
    <name>WindowDialogs</name>
    <message>
        <source>Gerät öffnen</source>
        <translation>Open device</translation>
    </message>
    <message>
        <source>Gerätebeschreibungen (*.json)</source>
        <translation>Device descriptions (*.json)</translation>
    </message>
    <message>
        <source>Projekt laden</source>
        <translation>Load project</translation>
    </message>
    <message>
        <source>Projekt speichern in</source>
        <translation>Save project in</translation>
    </message>
    <message>
        <source>Snapshot aufnehmen</source>
        <translation>Take snapshot</translation>
    </message>
    <message>
        <source>Name des Snapshots:</source>
        <translation>Name of the snapshot:</translation>
    </message>
    <message>
        <source>Aufnehmen</source>
        <translation>Take</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Ungespeicherte Änderungen</source>
        <translation>Unsaved changes</translation>
    </message>
    <message>
        <source>Es gibt ungespeicherte Änderungen.</source>
        <translation>There are unsaved changes.</translation>
    </message>
    <message>
        <source>Speichern</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Verwerfen</source>
        <translation>Discard</translation>
    </message>
    <message>
        <source>Der Parameterblock ist abgeschnitten. Trotzdem laden?</source>
        <translation>The parameter block is cut. Load it nevertheless?</translation>
    </message>
    <message>
        <source>Trotzdem laden</source>
        <translation>Load nevertheless</translation>
    </message>
    <message>
        <source>Beim Speichern geht etwas verloren. Trotzdem speichern?</source>
        <translation>Something gets lost in this save. Save nevertheless?</translation>
    </message>
    <message>
        <source>Trotzdem speichern</source>
        <translation>Save nevertheless</translation>
    </message>
    <message>
        <source>Rückfrage</source>
        <translation>Question</translation>
    </message>
    <message>
        <source>Antrieb</source>
        <translation>Drive</translation>
    </message>
    <message>
        <source>Adresse und Anschluss des Antriebs:</source>
        <translation>Address and port of the drive:</translation>
    </message>
    <message>
        <source>Verbinden</source>
        <translation>Connect</translation>
    </message>
    <message>
        <source>Der Ordner &quot;%1&quot; enthält ein anderes Projekt. Soll es ersetzt werden?</source>
        <translation>The folder &quot;%1&quot; holds another project. Replace it?</translation>
    </message>
    <message>
        <source>Ersetzen</source>
        <translation>Replace</translation>
    </message>
    <message>
        <source>Die Werte sind die des Antriebs %1. Sollen sie die Werte im Ordner &quot;%2&quot; ersetzen?</source>
        <translation>The values are those of the drive %1. Replace the values in the folder &quot;%2&quot; by them?</translation>
    </message>
    <message>
        <source>Im Ordner stehen die Werte des Antriebs %1.</source>
        <translation>The folder holds the values of the drive %1.</translation>
    </message>
    <message>
        <source>Strg+Umschalt+S speichert in einen anderen Ordner.</source>
        <translation>Ctrl+Shift+S saves into another folder.</translation>
    </message>
    <message>
        <source>Soll der Snapshot &quot;%1&quot; entfernt werden?</source>
        <translation>Remove snapshot &quot;%1&quot;?</translation>
    </message>
    <message>
        <source>Er lässt sich nicht zurückholen.</source>
        <translation>It cannot be brought back.</translation>
    </message>
    <message>
        <source>Entfernen</source>
        <translation>Remove</translation>
    </message>
    <message>
        <source>Snapshots bleiben nicht über das Ende hinaus. Trotzdem beenden?</source>
        <translation>Snapshots do not outlast the desk. Quit nevertheless?</translation>
    </message>
    <message>
        <source>Beenden</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>Von welchem Antrieb die Werte im Ordner sind, ist nicht bekannt.</source>
        <translation>It is not known which drive the values in the folder are from.</translation>
    </message>
</context>
<context>
    <name>WriteObstacle</name>
    <message>
        <source>%1 ist noch nicht schreibbar: Der Antrieb wird verbunden, und seine Werte ersetzen gleich alle. F9 bricht das ab.</source>
        <translation>%1 cannot be written yet: the drive is being connected, and its values are about to replace all. F9 cancels that.</translation>
    </message>
    <message>
        <source>%1 ist nicht schreibbar: Das Gerät ist auf nur lesen gestellt (F8).</source>
        <translation>%1 cannot be written: the device is set to read only (F8).</translation>
    </message>
    <message>
        <source>%1 wird nur gelesen.</source>
        <translation>%1 is only read.</translation>
    </message>
    <message>
        <source>%1 ist erst ab Zugriffsstufe %2 schreibbar.</source>
        <translation>%1 can be written from access level %2 on.</translation>
    </message>
    <message>
        <source>%1 ist nur online schreibbar.</source>
        <translation>%1 can be written online only.</translation>
    </message>
    <message>
        <source>%1 ist jetzt nicht schreibbar.</source>
        <translation>%1 cannot be written now.</translation>
    </message>
</context>
</TS>
