<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="de">
<context>
    <name>ActionEnding</name>
    <message>
        <source>die Aktion %1 läuft noch</source>
        <translation>action %1 is still running</translation>
    </message>
    <message>
        <source>die Aktion %1 ist im Zustand des Antriebs nicht startbar</source>
        <translation>action %1 cannot be started in the state of the drive</translation>
    </message>
    <message>
        <source>die Aktion %1 wurde nicht gestartet</source>
        <translation>action %1 was not started</translation>
    </message>
    <message>
        <source>ob die Aktion %1 gestartet wurde, ist nicht bekannt</source>
        <translation>whether action %1 was started is not known</translation>
    </message>
    <message>
        <source>die Aktion %1 endete vor 100 %</source>
        <translation>action %1 ended before 100 %</translation>
    </message>
</context>
<context>
    <name>Application</name>
    <message>
        <source>--lang nimmt de oder en, nicht &quot;%1&quot;</source>
        <translation>--lang takes de or en, not &quot;%1&quot;</translation>
    </message>
    <message>
        <source>die Ausgabe konnte nicht vollständig geschrieben werden</source>
        <translation>the output could not be written completely</translation>
    </message>
    <message>
        <source>es fehlt der Befehl</source>
        <translation>the command is missing</translation>
    </message>
    <message>
        <source>unbekannter Befehl &quot;%1&quot;</source>
        <translation>unknown command &quot;%1&quot;</translation>
    </message>
    <message>
        <source>%1 kennt die Option --%2 nicht</source>
        <translation>%1 does not know the option --%2</translation>
    </message>
    <message>
        <source>krparameter: %1</source>
        <translation>krparameter: %1</translation>
    </message>
    <message>
        <source>Hilfe: krparameter --help</source>
        <translation>Help: krparameter --help</translation>
    </message>
</context>
<context>
    <name>CarriedText</name>
    <message>
        <source>eine ganze Zahl von %1 bis %2</source>
        <translation>a whole number from %1 to %2</translation>
    </message>
    <message>
        <source>eine ganze Zahl von 0 bis %1</source>
        <translation>a whole number from 0 to %1</translation>
    </message>
    <message>
        <source>eine Zahl mit %1 Bit</source>
        <translation>a number of %1 bits</translation>
    </message>
    <message>
        <source>höchstens %1 Zeichen aus Latin-1</source>
        <translation>at most %1 characters of Latin-1</translation>
    </message>
    <message>
        <source>höchstens %1 Bytes, je zwei hexadezimale Ziffern</source>
        <translation>at most %1 bytes, two hexadecimal digits each</translation>
    </message>
</context>
<context>
    <name>CheckCommand</name>
    <message>
        <source>Liest die Beschreibung und jeden ihrer Werte und zeigt, was nicht gemeint sein kann:
Funktionen, die kein Programm sind, scheitern oder fehlen, Abhängigkeiten, die zu
nichts führen, Grenzen und Defaults, die nicht zueinander oder zum Datentyp passen.
Rückgabewert 1, wenn es etwas zu zeigen gibt.
</source>
        <translation>Reads the description and each of its values and shows what cannot be meant: functions
that are no program, fail or are missing, dependencies that lead nowhere, limits and
defaults that do not fit each other or the data type. Exit code 1 where there is
something to show.
</translation>
    </message>
    <message>
        <source>check nimmt keine Argumente</source>
        <translation>check takes no arguments</translation>
    </message>
    <message>
        <source>Eine Gerätebeschreibung prüfen</source>
        <translation>check a device description</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>unbekannte Option %1</source>
        <translation>unknown option %1</translation>
    </message>
    <message>
        <source>--%1 nimmt keinen Wert</source>
        <translation>--%1 takes no value</translation>
    </message>
    <message>
        <source>--%1 braucht einen Wert: %2</source>
        <translation>--%1 needs a value: %2</translation>
    </message>
</context>
<context>
    <name>CommandOptions</name>
    <message>
        <source>DATEI</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>Gerätebeschreibung, oder der Name einer mitgelieferten</source>
        <translation>device description, or the name of a shipped one</translation>
    </message>
    <message>
        <source>ORDNER</source>
        <translation>FOLDER</translation>
    </message>
    <message>
        <source>Projektordner; ohne ihn gelten die Defaultwerte</source>
        <translation>project folder; without it the default values apply</translation>
    </message>
    <message>
        <source>Achse für Adressen ohne Achse (sonst 1); list zeigt nur diese</source>
        <translation>axis for addresses without an axis (default 1); list shows only this one</translation>
    </message>
    <message>
        <source>Sprache der Texte, sonst de</source>
        <translation>language of the texts, default de</translation>
    </message>
    <message>
        <source>Ausgabe als JSON, ein Objekt je Zeile</source>
        <translation>output as JSON, one object per line</translation>
    </message>
    <message>
        <source>auch speichern, wenn dabei etwas verloren geht</source>
        <translation>save even if something gets lost in doing so</translation>
    </message>
    <message>
        <source>Hilfe; mit BEFEHL die Hilfe zu diesem</source>
        <translation>help; with COMMAND the help on that command</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>version</translation>
    </message>
    <message>
        <source>Zugriffsstufe: 0 (Bediener) bis 6 (Hersteller) oder mehr, sonst 4</source>
        <translation>access level: 0 (operator) to 6 (manufacturer) or more, default 4</translation>
    </message>
    <message>
        <source>auch einen abgeschnittenen Block laden, ein Projekt ersetzen</source>
        <translation>load a truncated block as well, replace a project</translation>
    </message>
</context>
<context>
    <name>Consequences</name>
    <message>
        <source>jetzt sichtbar</source>
        <translation>visible now</translation>
    </message>
    <message>
        <source>jetzt verborgen</source>
        <translation>hidden now</translation>
    </message>
    <message>
        <source>Grenzen %1 -&gt; %2</source>
        <translation>limits %1 -&gt; %2</translation>
    </message>
    <message>
        <source>%1 bis %2</source>
        <translation>%1 to %2</translation>
    </message>
    <message>
        <source>Einheit %1 -&gt; %2</source>
        <translation>unit %1 -&gt; %2</translation>
    </message>
    <message>
        <source>native Einheit %1 -&gt; %2</source>
        <translation>native unit %1 -&gt; %2</translation>
    </message>
</context>
<context>
    <name>ContentCheck</name>
    <message>
        <source>das Gerät verwendet eine höhere Nummer, als seine Firmware hat</source>
        <translation>the device uses a higher number than its firmware has</translation>
    </message>
    <message>
        <source>die Abhängigkeit %1 %2 führt zu keinem Wert</source>
        <translation>the dependency %1 %2 leads to no value</translation>
    </message>
    <message>
        <source>die Abhängigkeit measuringUnit führt zu keiner Einheit</source>
        <translation>the dependency measuringUnit leads to no unit</translation>
    </message>
    <message>
        <source>der Default %1 ist nicht zulässig; es gilt %2</source>
        <translation>the default %1 is not acceptable; %2 applies</translation>
    </message>
    <message>
        <source>die Grenze %1 liegt außerhalb des Datentyps %2</source>
        <translation>the limit %1 lies outside of the data type %2</translation>
    </message>
    <message>
        <source>die untere Grenze %1 liegt über der oberen %2</source>
        <translation>the lower limit %1 lies above the upper limit %2</translation>
    </message>
</context>
<context>
    <name>CoordinateTable</name>
    <message>
        <source>Zeile %1: %2</source>
        <translation>line %1: %2</translation>
    </message>
    <message>
        <source>erwartet werden ein Index und eine Koordinate</source>
        <translation>an index and a coordinate are expected</translation>
    </message>
    <message>
        <source>der Index ist keiner von 0x0001 bis 0xFFFF</source>
        <translation>the index is none from 0x0001 to 0xFFFF</translation>
    </message>
    <message>
        <source>die Koordinate ist keine von A00 bis Z999</source>
        <translation>the coordinate is none from A00 to Z999</translation>
    </message>
    <message>
        <source>die Koordinate %1 ist vorbehalten</source>
        <translation>the coordinate %1 is reserved</translation>
    </message>
    <message>
        <source>der Index %1 steht schon in einer früheren Zeile</source>
        <translation>the index %1 stands in an earlier line already</translation>
    </message>
    <message>
        <source>die Koordinate %1 gehört schon zu %2</source>
        <translation>the coordinate %1 belongs to %2 already</translation>
    </message>
</context>
<context>
    <name>DemoCommand</name>
    <message>
        <source>Legt die Parameter des mitgelieferten Zweiachsreglers an, liest, schreibt, lässt einen
Wert abweisen, schaltet die Achse um, speichert, lädt neu und vergleicht. Das Projekt
bleibt in --project, sonst in ./demo-project. Ein Projekt, das dort schon liegt, wird
nur mit --force ersetzt.
</source>
        <translation>Creates the parameters of the shipped two-axis drive, reads, writes, has a value
rejected, switches the axis, saves, loads anew and compares. The project stays in
--project, otherwise in ./demo-project. A project that is there already is replaced
only with --force.
</translation>
    </message>
    <message>
        <source>krparameter: %1</source>
        <translation>krparameter: %1</translation>
    </message>
    <message>
        <source>demo nimmt keine Argumente</source>
        <translation>demo takes no arguments</translation>
    </message>
    <message>
        <source>in %1 liegt schon ein Projekt; --force ersetzt es</source>
        <translation>there is a project in %1 already; --force replaces it</translation>
    </message>
    <message>
        <source>die mitgelieferte Beschreibung %1 fehlt</source>
        <translation>the shipped description %1 is missing</translation>
    </message>
    <message>
        <source>die Hauptaufgabe an einem Beispielgerät</source>
        <translation>the main task on an example device</translation>
    </message>
</context>
<context>
    <name>Demonstration</name>
    <message>
        <source>Fertig. Das Projekt liegt in %1.</source>
        <translation>Done. The project is in %1.</translation>
    </message>
    <message>
        <source>Weiter zum Beispiel mit:</source>
        <translation>Go on, for example, with:</translation>
    </message>
    <message>
        <source>Gerätebeschreibung laden, Parameter anlegen</source>
        <translation>Load the device description, create the parameters</translation>
    </message>
    <message>
        <source>%1: %2 mit %3 Achsen</source>
        <translation>%1: %2 with %3 axes</translation>
    </message>
    <message>
        <source>%1 Parameter angelegt, zusammen %2 Werte; alle stehen auf ihrem Defaultwert</source>
        <translation>%1 parameters created, %2 values in total; all are at their default value</translation>
    </message>
    <message>
        <source>Lesen: Anzeige, dahinter der native Wert des Antriebs</source>
        <translation>Read: display text, followed by the native value of the drive</translation>
    </message>
    <message>
        <source>ein Parameter fehlt in der Beschreibung</source>
        <translation>a parameter is missing from the description</translation>
    </message>
    <message>
        <source>Schreiben, in der Form, in der man liest</source>
        <translation>Write, in the form in which values are read</translation>
    </message>
    <message>
        <source>Querförderer</source>
        <translation>Cross conveyor</translation>
    </message>
    <message>
        <source>ein Wert wurde nicht übernommen</source>
        <translation>a value was not accepted</translation>
    </message>
    <message>
        <source>Ein Wert, den der Antrieb abweist</source>
        <translation>A value that the drive rejects</translation>
    </message>
    <message>
        <source>der Wert wurde nicht abgewiesen</source>
        <translation>the value was not rejected</translation>
    </message>
    <message>
        <source>%1 = %2 geschrieben; Meldung:</source>
        <translation>%1 = %2 written; message:</translation>
    </message>
    <message>
        <source>genannt ist der nächste zulässige Wert; es bleibt bei %1</source>
        <translation>it names the nearest permitted value; the value stays at %1</translation>
    </message>
    <message>
        <source>Achse umschalten (E84)</source>
        <translation>Switch the axis (E84)</translation>
    </message>
    <message>
        <source>die Achse ließ sich nicht umschalten</source>
        <translation>the axis could not be switched</translation>
    </message>
    <message>
        <source>aktiv war Achse %1, aktiv ist Achse %2</source>
        <translation>axis %1 was active, axis %2 is active</translation>
    </message>
    <message>
        <source>jede Achse hat ihren eigenen Wert:</source>
        <translation>each axis has its own value:</translation>
    </message>
    <message>
        <source>Speichern</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>%1 geschrieben und zurückgelesen</source>
        <translation>%1 written and read back</translation>
    </message>
    <message>
        <source>In einen frischen Container laden und vergleichen</source>
        <translation>Load into a fresh container and compare</translation>
    </message>
    <message>
        <source>verschieden: %1</source>
        <translation>different: %1</translation>
    </message>
    <message>
        <source>%1 Werte mit Defaultwert und Änderungskennungen verglichen: alle gleich</source>
        <translation>%1 values compared with their default value and change tags: all equal</translation>
    </message>
    <message>
        <source>der Block ist nicht derselbe</source>
        <translation>the block is not the same</translation>
    </message>
    <message>
        <source>beide Container speichern denselben Block, Byte für Byte (%1 Bytes)</source>
        <translation>both containers save the same block, byte for byte (%1 bytes)</translation>
    </message>
    <message>
        <source>Nichts ging verloren.</source>
        <translation>Nothing was lost.</translation>
    </message>
    <message>
        <source>krparameter: %1</source>
        <translation>krparameter: %1</translation>
    </message>
</context>
<context>
    <name>DeviceInformation</name>
    <message>
        <source>ist keine Knotennummer von 1 bis 127</source>
        <translation>is no node id from 1 to 127</translation>
    </message>
    <message>
        <source>lässt PDO-Objekte aus; sie werden nicht ergänzt</source>
        <translation>leaves out PDO objects, which are not made</translation>
    </message>
</context>
<context>
    <name>DictionaryEntryReader</name>
    <message>
        <source>der Abschnitt %1 hat keine Zugriffsart; nur lesbar</source>
        <translation>the section %1 has no access type; read-only</translation>
    </message>
    <message>
        <source>ist keine Zugriffsart; nur lesbar</source>
        <translation>is no access type; read-only</translation>
    </message>
    <message>
        <source>DOMAIN, ein Datenblock ohne eigenen Wert</source>
        <translation>DOMAIN, a block of data without a value of its own</translation>
    </message>
    <message>
        <source>hat keinen Datentyp</source>
        <translation>has no data type</translation>
    </message>
    <message>
        <source>der Datentyp %1 ist keine Zahl</source>
        <translation>the data type %1 is no number</translation>
    </message>
</context>
<context>
    <name>DiffCommand</name>
    <message>
        <source>&lt;nicht vorhanden&gt;</source>
        <translation>&lt;not present&gt;</translation>
    </message>
    <message>
        <source>&lt;nicht lesbar&gt;</source>
        <translation>&lt;not readable&gt;</translation>
    </message>
    <message>
        <source>Ausgabe als Tabelle mit Kommas (RFC 4180)</source>
        <translation>output as a table with commas (RFC 4180)</translation>
    </message>
    <message>
        <source>diff braucht ein oder zwei Projekte oder Snapshots</source>
        <translation>diff needs one or two projects or snapshots</translation>
    </message>
    <message>
        <source>--csv und --json schließen sich aus</source>
        <translation>--csv and --json exclude each other</translation>
    </message>
    <message>
        <source>A [B]</source>
        <translation>A [B]</translation>
    </message>
    <message>
        <source>Unterschiede zweier Zustände, einer je Zeile</source>
        <translation>differences of two states, one a line</translation>
    </message>
    <message>
        <source>A und B sind Projektordner oder Dateien von snapshot; ein --project gilt als A. Ohne B
wird mit den Defaultwerten des Geräts verglichen, die dann links stehen. Ein Wert gilt
als verschieden, wenn sich Anzeigetext und nativer Text unterscheiden. Rückgabewert
1, wo es Unterschiede gibt. Werte ab Schreibstufe 6 zeigen &lt;offline&gt; und gelten als gleich,
außer mit --access-level 5.
</source>
        <translation>A and B are project folders or files of snapshot; a --project counts as A. Without B the
comparison is with the device&apos;s defaults, which then stand on the left. A value differs where
its display text and its native text differ. Exit code 1 where there are differences. Values
of write level 6 and above show &lt;offline&gt; and count as equal, except with --access-level 5.
</translation>
    </message>
</context>
<context>
    <name>DriveProject</name>
    <message>
        <source>abgebrochen</source>
        <translation>cancelled</translation>
    </message>
</context>
<context>
    <name>DriveReader</name>
    <message>
        <source>unlesbare Antwort</source>
        <translation>unreadable answer</translation>
    </message>
</context>
<context>
    <name>DriveServer</name>
    <message>
        <source>das ist keine IP-Adresse</source>
        <translation>this is no IP address</translation>
    </message>
</context>
<context>
    <name>DriveWriter</name>
    <message>
        <source>nicht zurückgelesen: %1</source>
        <translation>not read back: %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; passt nicht, erwartet wird %2</source>
        <translation>&quot;%1&quot; does not fit, expected is %2</translation>
    </message>
</context>
<context>
    <name>EdsReader</name>
    <message>
        <source>dem Abschnitt fehlt die schließende Klammer: %1</source>
        <translation>the section has no closing bracket: %1</translation>
    </message>
    <message>
        <source>ein Abschnitt ohne Namen, übersprungen: %1</source>
        <translation>a section without name, skipped: %1</translation>
    </message>
    <message>
        <source>Text hinter dem Namen eines Abschnitts, übersprungen: %1</source>
        <translation>text after a section&apos;s name, skipped: %1</translation>
    </message>
    <message>
        <source>der Abschnitt %1 aus Zeile %2 geht hier weiter</source>
        <translation>the section %1 of line %2 goes on here</translation>
    </message>
    <message>
        <source>weder Abschnitt noch Eintrag noch Kommentar, übersprungen: %1</source>
        <translation>neither section, entry nor comment, skipped: %1</translation>
    </message>
    <message>
        <source>ein Eintrag ohne Schlüssel, übersprungen: %1</source>
        <translation>an entry without key, skipped: %1</translation>
    </message>
    <message>
        <source>ein Eintrag außerhalb eines Abschnitts, übersprungen: %1</source>
        <translation>an entry outside of any section, skipped: %1</translation>
    </message>
    <message>
        <source>der Schlüssel steht schon da, sein erster Wert gilt: %1</source>
        <translation>the key is there already, its first value counts: %1</translation>
    </message>
</context>
<context>
    <name>EdsSection</name>
    <message>
        <source>ist keine 32-Bit-Zahl und zählt als 0</source>
        <translation>is no number of 32 bits and counts as 0</translation>
    </message>
</context>
<context>
    <name>ExportCommand</name>
    <message>
        <source>A ist ein Projektordner oder eine Datei von snapshot; ohne A und --project gelten die
Defaultwerte. Die Datei wird neben ihrem Platz geschrieben, zurückgelesen und dann
umbenannt. Texte, die sie nicht trägt (Anführungszeichen, Zeilenenden, Formeln), werden
mit Adresse genannt; --rfc4180 schreibt eine zweite Datei, die sie trägt.
</source>
        <translation>A is a project folder or a file of snapshot; without A and --project the defaults hold. The
file is written beside its place, read back and then renamed. Texts that it cannot carry
(quotation marks, line ends, formulas) are named by address; --rfc4180 writes a second file
that carries them.
</translation>
    </message>
    <message>
        <source>DATEI</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>Datei, die geschrieben wird</source>
        <translation>file that is written</translation>
    </message>
    <message>
        <source>dazu als Tabelle mit Kommas, in der alles maskiert ist</source>
        <translation>also as a table with commas in which everything is escaped</translation>
    </message>
    <message>
        <source>export nimmt höchstens ein Projekt oder einen Snapshot</source>
        <translation>export takes at most one project or snapshot</translation>
    </message>
    <message>
        <source>export braucht -o DATEI</source>
        <translation>export needs -o FILE</translation>
    </message>
    <message>
        <source>%1: %2 Zeilen geschrieben und zurückgelesen</source>
        <translation>%1: %2 lines written and read back</translation>
    </message>
    <message>
        <source>[A]</source>
        <translation>[A]</translation>
    </message>
    <message>
        <source>Werte als Text mit Semikolons schreiben</source>
        <translation>write values as text with semicolons</translation>
    </message>
    <message>
        <source>Sie enthält alle Werte, auch die über der Zugriffsstufe.
</source>
        <translation>It holds all values, also those above the access level.
</translation>
    </message>
</context>
<context>
    <name>ExportIssue</name>
    <message>
        <source>enthält ein Anführungszeichen</source>
        <translation>contains a quotation mark</translation>
    </message>
    <message>
        <source>enthält ein Zeilenende</source>
        <translation>contains a line end</translation>
    </message>
    <message>
        <source>wird von Tabellenprogrammen als Formel ausgeführt</source>
        <translation>is run as a formula by spreadsheets</translation>
    </message>
    <message>
        <source>Parameter %1: der Name %2</source>
        <translation>Parameter %1: the name %2</translation>
    </message>
    <message>
        <source>Parameter %1: der Wert %2</source>
        <translation>Parameter %1: the value %2</translation>
    </message>
</context>
<context>
    <name>FilePlace</name>
    <message>
        <source>die Verweise führen im Kreis</source>
        <translation>the links lead in a circle</translation>
    </message>
    <message>
        <source>ist der Name eines Ordners</source>
        <translation>is the name of a folder</translation>
    </message>
</context>
<context>
    <name>FirstContact</name>
    <message>
        <source>der Antrieb ist ein anderes Gerät als das beschriebene (Einheit %1)</source>
        <translation>the drive is another device than the described one (unit %1)</translation>
    </message>
</context>
<context>
    <name>GetCommand</name>
    <message>
        <source>ADRESSE ist zum Beispiel E84, E30[1] (Element 1) oder 2.B01 (Achse 2). Ohne Element
werden alle Elemente gezeigt.
</source>
        <translation>ADDRESS is, for example, E84, E30[1] (element 1) or 2.B01 (axis 2). Without an element
all elements are shown.
</translation>
    </message>
    <message>
        <source>get braucht mindestens eine Adresse</source>
        <translation>get needs at least one address</translation>
    </message>
    <message>
        <source>ADRESSE...</source>
        <translation>ADDRESS...</translation>
    </message>
    <message>
        <source>Werte in allen Formen, mit Grenzen und Auswahl</source>
        <translation>values in all forms, with limits and choices</translation>
    </message>
</context>
<context>
    <name>HelpText</name>
    <message>
        <source>Aufruf: krparameter --device DATEI [--project ORDNER] BEFEHL ...

Liest und schreibt die Parameter eines Servoantriebs.

Befehle:
</source>
        <translation>Usage: krparameter --device FILE [--project FOLDER] COMMAND ...

Reads and writes the parameters of a servo drive.

Commands:
</translation>
    </message>
    <message>
        <source>
Optionen, vor oder nach dem Befehl:
</source>
        <translation>
Options, before or after the command:
</translation>
    </message>
    <message>
        <source>Aufruf: krparameter [OPTIONEN] %1

%2
</source>
        <translation>Usage: krparameter [OPTIONS] %1

%2
</translation>
    </message>
    <message>
        <source>
Optionen des Befehls:
</source>
        <translation>
Options of the command:
</translation>
    </message>
    <message>
        <source>
Allgemeine Optionen:
</source>
        <translation>
General options:
</translation>
    </message>
    <message>
        <source>Rückgabewerte: 0 gut, 1 Unterschiede, 2 falscher Aufruf, 3 Eingabe nicht lesbar,
4 Wert abgewiesen, 5 für diesen Benutzer nicht schreibbar, 6 Schreiben fehlgeschlagen
</source>
        <translation>Exit codes: 0 good, 1 differences, 2 wrong usage, 3 unreadable input,
4 value rejected, 5 not writable for this user, 6 writing failed
</translation>
    </message>
</context>
<context>
    <name>ImportEdsCommand</name>
    <message>
        <source>TABELLE</source>
        <translation>TABLE</translation>
    </message>
    <message>
        <source>Tabelle der Koordinaten</source>
        <translation>table of the coordinates</translation>
    </message>
    <message>
        <source>DATEI</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>Gerätebeschreibung, die geschrieben wird</source>
        <translation>device description to be written</translation>
    </message>
    <message>
        <source>Knotennummer von 1 bis 127 statt der in der Datei</source>
        <translation>node id from 1 to 127 instead of the one in the file</translation>
    </message>
    <message>
        <source>import-eds braucht genau eine Datei</source>
        <translation>import-eds needs exactly one file</translation>
    </message>
    <message>
        <source>import-eds braucht --coordinates TABELLE und -o DATEI</source>
        <translation>import-eds needs --coordinates TABLE and -o FILE</translation>
    </message>
    <message>
        <source>--node-id nimmt eine Zahl von 1 bis 127 oder 0x1 bis 0x7F</source>
        <translation>--node-id takes a number from 1 to 127 or 0x1 to 0x7F</translation>
    </message>
    <message>
        <source>in %1 liegt schon ein Projekt; --force ersetzt es</source>
        <translation>there is a project in %1 already; --force replaces it</translation>
    </message>
    <message>
        <source>Projekt %1: gespeichert und zurückgelesen</source>
        <translation>Project %1: saved and read back</translation>
    </message>
    <message>
        <source>krparameter: %1</source>
        <translation>krparameter: %1</translation>
    </message>
    <message>
        <source>DATEI.eds|DATEI.dcf</source>
        <translation>FILE.eds|FILE.dcf</translation>
    </message>
    <message>
        <source>Gerätebeschreibung aus einem Objektverzeichnis</source>
        <translation>device description from an object dictionary</translation>
    </message>
    <message>
        <source>%1 Werte hängen von der Knotennummer ab, die die Datei nicht nennt; --node-id N gibt sie an.</source>
        <translation>%1 values depend on the node id, which the file does not give; --node-id N gives it.</translation>
    </message>
    <message>
        <source>Liest ein Objektverzeichnis nach CiA 306 und schreibt eine Gerätebeschreibung. Welche
Koordinate ein Objekt hat, steht in der Tabelle; sie wird angelegt, wo sie fehlt, und
nur erweitert. Die konfigurierten Werte einer DCF-Datei werden ein Projekt: in --project,
ohne diese Angabe im Ordner NAME.project neben der Gerätebeschreibung NAME.json.
</source>
        <translation>Reads an object dictionary after CiA 306 and writes a device description. The table says
which coordinate an object has; it is created where it is missing, and only ever
extended. The configured values of a DCF file become a project: in --project, without it
in the folder NAME.project beside the device description NAME.json.
</translation>
    </message>
    <message>
        <source>Die Datei konfiguriert keinen brauchbaren Wert: kein Projekt.</source>
        <translation>The file configures no usable value: no project.</translation>
    </message>
</context>
<context>
    <name>ImportReport</name>
    <message>
        <source>%1: %2 Objekte gelesen (%3 Elemente), %4 übersprungen
</source>
        <translation>%1: %2 objects read (%3 elements), %4 skipped
</translation>
    </message>
    <message>
        <source>  Gerätefamilie %1 (%2)
</source>
        <translation>  device family %1 (%2)
</translation>
    </message>
    <message>
        <source>  Knotennummer %1
</source>
        <translation>  node id %1
</translation>
    </message>
    <message>
        <source>  Knotennummer nicht bekannt; %1 Werte hängen von ihr ab
</source>
        <translation>  node id not known; %1 values depend on it
</translation>
    </message>
    <message>
        <source>  %1 neue Koordinaten
</source>
        <translation>  %1 new coordinates
</translation>
    </message>
    <message>
        <source>  %1 konfigurierte Werte
</source>
        <translation>  %1 configured values
</translation>
    </message>
    <message>
        <source> (Zeile %1)</source>
        <translation> (line %1)</translation>
    </message>
    <message>
        <source>  übersprungen %1%2: %3
</source>
        <translation>  skipped %1%2: %3
</translation>
    </message>
    <message>
        <source>  Zeile %1: </source>
        <translation>  line %1: </translation>
    </message>
    <message>
        <source>  %1 weitere Bemerkungen
</source>
        <translation>  %1 further remarks
</translation>
    </message>
</context>
<context>
    <name>InfoCommand</name>
    <message>
        <source>info nimmt keine Argumente</source>
        <translation>info takes no arguments</translation>
    </message>
    <message>
        <source>Gerätefamilie</source>
        <translation>Device family</translation>
    </message>
    <message>
        <source>Achsen</source>
        <translation>Axes</translation>
    </message>
    <message>
        <source> (physisch)</source>
        <translation> (physical)</translation>
    </message>
    <message>
        <source>Sprachen</source>
        <translation>Languages</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Parameters</translation>
    </message>
    <message>
        <source>Werte</source>
        <translation>Values</translation>
    </message>
    <message>
        <source>Projekt</source>
        <translation>Project</translation>
    </message>
    <message>
        <source>Befund</source>
        <translation>Finding</translation>
    </message>
    <message>
        <source>Gerät und Projekt in Zahlen</source>
        <translation>device and project in figures</translation>
    </message>
</context>
<context>
    <name>ListCommand</name>
    <message>
        <source>Zeigt Adresse, Name und Anzeigetext mit Einheit. MUSTER trifft Teile von Adresse oder
Name, ohne Groß und Klein zu unterscheiden; * steht für beliebigen Text, ? für ein
Zeichen, zum Beispiel &apos;H?1&apos; oder &apos;strom&apos;. &quot;(!)&quot; steht hinter Texten, die als Eingabe
einen anderen Wert ergäben; get sagt welchen.
</source>
        <translation>Shows address, name and display text with unit. PATTERN matches parts of the address or
the name, regardless of upper and lower case; * stands for any text, ? for one
character, for example &apos;H?1&apos; or &apos;current&apos;. &quot;(!)&quot; follows texts that would yield another
value when typed in; get says which.
</translation>
    </message>
    <message>
        <source>auch verborgene und für diese Stufe nicht lesbare Werte</source>
        <translation>values that are hidden or not readable at this level as well</translation>
    </message>
    <message>
        <source>list nimmt höchstens ein Muster</source>
        <translation>list takes one pattern at most</translation>
    </message>
    <message>
        <source>[MUSTER]</source>
        <translation>[PATTERN]</translation>
    </message>
    <message>
        <source>Werte zeigen, einen je Zeile</source>
        <translation>show values, one per line</translation>
    </message>
</context>
<context>
    <name>LoadReport</name>
    <message>
        <source>der Block fehlt, obwohl das Manifest ihn kennt</source>
        <translation>the block is missing although the manifest lists it</translation>
    </message>
    <message>
        <source>der Block ist kürzer, als das Manifest festhält</source>
        <translation>the block is shorter than the manifest records</translation>
    </message>
    <message>
        <source>der Block hat weniger Abschnitte, als das Manifest festhält</source>
        <translation>the block has fewer sections than the manifest records</translation>
    </message>
    <message>
        <source>die letzte Zeile hat kein Zeilenende</source>
        <translation>the last line has no line end</translation>
    </message>
    <message>
        <source>im letzten Abschnitt fehlen Schlüssel</source>
        <translation>keys are missing from the last section</translation>
    </message>
    <message>
        <source>genau die letzten Parameter fehlen</source>
        <translation>exactly the last parameters are missing</translation>
    </message>
    <message>
        <source> und %1 weitere</source>
        <translation> and %1 more</translation>
    </message>
    <message>
        <source>%1 Werte und %2 Defaultwerte gelesen</source>
        <translation>%1 values and %2 default values read</translation>
    </message>
    <message>
        <source>%1 Abschnitte übersprungen, das Gerät hat diese Parameter nicht: %2</source>
        <translation>%1 sections skipped, the device does not have these parameters: %2</translation>
    </message>
    <message>
        <source>%1 Abschnitte stehen mehrfach, der letzte gilt: %2</source>
        <translation>%1 sections occur more than once, the last one applies: %2</translation>
    </message>
    <message>
        <source>%1 Parameter fehlen und behalten ihre Werte: %2</source>
        <translation>%1 parameters are missing and keep their values: %2</translation>
    </message>
    <message>
        <source>%1 Werte fehlen und werden leer: %2</source>
        <translation>%1 values are missing and become empty: %2</translation>
    </message>
    <message>
        <source>%1 Defaultwerte fehlen und werden leer: %2</source>
        <translation>%1 default values are missing and become empty: %2</translation>
    </message>
    <message>
        <source>%1 Schlüssel nicht verstanden: %2</source>
        <translation>%1 keys not understood: %2</translation>
    </message>
    <message>
        <source>%1 Zeilen nicht lesbar, zuerst: %2</source>
        <translation>%1 lines not readable, first: %2</translation>
    </message>
    <message>
        <source>abgeschnitten: %1</source>
        <translation>truncated: %1</translation>
    </message>
</context>
<context>
    <name>LossReport</name>
    <message>
        <source>Wert</source>
        <translation>value</translation>
    </message>
    <message>
        <source>Änderungskennung des Werts</source>
        <translation>change tag of the value</translation>
    </message>
    <message>
        <source>Defaultwert</source>
        <translation>default value</translation>
    </message>
    <message>
        <source>Änderungskennung des Defaultwerts</source>
        <translation>change tag of the default value</translation>
    </message>
    <message>
        <source>Eigenschaft</source>
        <translation>property</translation>
    </message>
    <message>
        <source>Parameter %1: %2 &quot;%3&quot; enthält Zeichen, die Latin-1 nicht kennt</source>
        <translation>Parameter %1: %2 &quot;%3&quot; contains characters that Latin-1 does not have</translation>
    </message>
</context>
<context>
    <name>ModbusTcpLink</name>
    <message>
        <source>der Antrieb hat dort keinen solchen Wert</source>
        <translation>the drive has no such value there</translation>
    </message>
    <message>
        <source>der Antrieb nimmt diesen Wert nicht an</source>
        <translation>the drive does not accept this value</translation>
    </message>
    <message>
        <source>der Antrieb kann das in seinem Zustand nicht</source>
        <translation>the drive cannot do this in its state</translation>
    </message>
    <message>
        <source>der Antrieb lehnt ab (Code %1)</source>
        <translation>the drive refuses (code %1)</translation>
    </message>
    <message>
        <source>der Antrieb hat die Verbindung beendet</source>
        <translation>the drive has closed the connection</translation>
    </message>
    <message>
        <source>unlesbare Antwort</source>
        <translation>unreadable answer</translation>
    </message>
    <message>
        <source>der Antrieb ist beschäftigt</source>
        <translation>the drive is busy</translation>
    </message>
    <message>
        <source>der Antrieb lässt die Anfrage dort nicht zu</source>
        <translation>the drive does not allow the request there</translation>
    </message>
</context>
<context>
    <name>NativeValue</name>
    <message>
        <source>der Datentyp hat hier keine Werte</source>
        <translation>the data type has no values here</translation>
    </message>
    <message>
        <source>ist keine ganze Zahl</source>
        <translation>is no integer</translation>
    </message>
    <message>
        <source>hängt von der Knotennummer ab, die nicht bekannt ist</source>
        <translation>depends on the node id, which is not known</translation>
    </message>
    <message>
        <source>ist größer als 64 Bit</source>
        <translation>is beyond 64 bits</translation>
    </message>
    <message>
        <source>liegt außerhalb von %1</source>
        <translation>is outside of %1</translation>
    </message>
    <message>
        <source>hat führende Nullen und wurde als %1 gelesen</source>
        <translation>has leading zeros and was read as %1</translation>
    </message>
    <message>
        <source>ist kein endlicher Wert für %1</source>
        <translation>is no finite %1</translation>
    </message>
    <message>
        <source>enthält Zeichen, die ein Text des Geräts nicht hat</source>
        <translation>holds characters that a text of the device does not have</translation>
    </message>
    <message>
        <source>ist länger als %1 Zeichen</source>
        <translation>is longer than %1 characters</translation>
    </message>
    <message>
        <source>ist weder hexadezimal noch Latin-1-Text</source>
        <translation>is neither hexadecimal nor Latin-1 text</translation>
    </message>
    <message>
        <source>ist länger als %1 Bytes</source>
        <translation>is longer than %1 bytes</translation>
    </message>
    <message>
        <source>ist nicht hexadezimal; seine Zeichen wurden als Bytes genommen</source>
        <translation>is not hexadecimal; its characters were taken as bytes</translation>
    </message>
</context>
<context>
    <name>NetworkOptions</name>
    <message>
        <source>ADRESSE</source>
        <translation>ADDRESS</translation>
    </message>
    <message>
        <source>Adresse des Antriebs, sonst 127.0.0.1</source>
        <translation>address of the drive, otherwise 127.0.0.1</translation>
    </message>
    <message>
        <source>Anschluss von 0 bis 65535, sonst 502</source>
        <translation>port from 0 to 65535, otherwise 502</translation>
    </message>
    <message>
        <source>--%1 nimmt eine Zahl von 0 bis %2</source>
        <translation>--%1 takes a number from 0 to %2</translation>
    </message>
</context>
<context>
    <name>ObjectDictionaryImport</name>
    <message>
        <source>es fehlt ein Dateiname</source>
        <translation>a file name is missing</translation>
    </message>
    <message>
        <source>ist Tabelle und Ausgabe zugleich</source>
        <translation>is both table and output</translation>
    </message>
    <message>
        <source>würde überschrieben</source>
        <translation>would be overwritten</translation>
    </message>
    <message>
        <source>die Knotennummer ist keine von 1 bis 127</source>
        <translation>the node id is none from 1 to 127</translation>
    </message>
    <message>
        <source>ein anderer Import hält die Tabelle</source>
        <translation>another import holds the table</translation>
    </message>
    <message>
        <source>die Koordinatentabelle ist voll</source>
        <translation>the coordinate table is full</translation>
    </message>
    <message>
        <source>enthält kein Objekt mit einem Wert</source>
        <translation>holds no object with a value</translation>
    </message>
    <message>
        <source>in ihrem Ordner lässt sich keine Sperrdatei anlegen</source>
        <translation>no lock file can be made in its folder</translation>
    </message>
</context>
<context>
    <name>ObjectDictionaryReader</name>
    <message>
        <source>Indizes unter 0x1000 beschreiben Datentypen</source>
        <translation>indices below 0x1000 describe data types</translation>
    </message>
    <message>
        <source>nur Listen, aber kein Abschnitt des Objekts</source>
        <translation>only lists, but no section of the object</translation>
    </message>
    <message>
        <source>%1 hat Unterobjekte, aber keinen eigenen Abschnitt</source>
        <translation>%1 has sub-objects, but no section of its own</translation>
    </message>
    <message>
        <source>NULL, ein Objekt ohne Inhalt</source>
        <translation>NULL, an object without content</translation>
    </message>
    <message>
        <source>DOMAIN, ein Datenblock ohne eigenen Wert</source>
        <translation>DOMAIN, a block of data without a value of its own</translation>
    </message>
    <message>
        <source>beschreibt einen Datentyp</source>
        <translation>describes a data type</translation>
    </message>
    <message>
        <source>die Objektart %1 ist unbekannt</source>
        <translation>object type %1 is not known</translation>
    </message>
    <message>
        <source>ist keine Objektart; gilt als fehlend</source>
        <translation>is no object type; taken as missing</translation>
    </message>
    <message>
        <source>nennt einen einzelnen Wert, aber es gibt Unterobjekte</source>
        <translation>names a single value, but there are sub-objects</translation>
    </message>
    <message>
        <source>ist keine Anzahl von Unterobjekten von 0 bis 254; übersprungen</source>
        <translation>is no number of sub-objects from 0 to 254; skipped</translation>
    </message>
    <message>
        <source>ergibt mehr Unterobjekte, als eine Datei haben darf; übersprungen</source>
        <translation>makes more sub-objects than one file may; skipped</translation>
    </message>
    <message>
        <source>hat keine Unterobjekte</source>
        <translation>has no sub-objects</translation>
    </message>
    <message>
        <source>keines seiner Unterobjekte hat einen Wert</source>
        <translation>none of its sub-objects has a value</translation>
    </message>
    <message>
        <source>weicht ab; die Datei nennt %1</source>
        <translation>differs; the file has %1</translation>
    </message>
</context>
<context>
    <name>ObjectListCheck</name>
    <message>
        <source>weicht ab; die Liste nennt %1</source>
        <translation>differs; the list has %1</translation>
    </message>
    <message>
        <source>ist kein Index, übersprungen</source>
        <translation>is no index, skipped</translation>
    </message>
    <message>
        <source>%1 steht in keiner Objektliste</source>
        <translation>%1 stands in no object list</translation>
    </message>
    <message>
        <source>aufgeführt, aber ohne Abschnitt</source>
        <translation>listed, but without a section</translation>
    </message>
</context>
<context>
    <name>ObjectSections</name>
    <message>
        <source>der Abschnitt %1 wiederholt %2 aus Zeile %3, übersprungen</source>
        <translation>the section %1 repeats %2 of line %3, skipped</translation>
    </message>
    <message>
        <source>der Abschnitt %1 nennt kein Objekt, übersprungen</source>
        <translation>the section %1 names no object, skipped</translation>
    </message>
</context>
<context>
    <name>OnlineCommand</name>
    <message>
        <source>online %1 braucht mindestens eine Adresse</source>
        <translation>online %1 needs at least one address</translation>
    </message>
    <message>
        <source>online set braucht Paare aus Adresse und Wert</source>
        <translation>online set needs pairs of address and value</translation>
    </message>
    <message>
        <source>online %1 nimmt keine Argumente</source>
        <translation>online %1 takes no arguments</translation>
    </message>
    <message>
        <source>online %1 kennt die Option --project nicht</source>
        <translation>online %1 does not know the option --project</translation>
    </message>
    <message>
        <source>online download braucht --project ORDNER</source>
        <translation>online download needs --project FOLDER</translation>
    </message>
    <message>
        <source>online %1 kennt die Option --seconds nicht</source>
        <translation>online %1 does not know the option --seconds</translation>
    </message>
    <message>
        <source>AUFTRAG [ADRESSE [WERT]...]</source>
        <translation>JOB [ADDRESS [VALUE]...]</translation>
    </message>
    <message>
        <source>mit einem Antrieb über Modbus TCP arbeiten</source>
        <translation>work with a drive over Modbus TCP</translation>
    </message>
    <message>
        <source>AUFTRAG ist get, set, watch, action, upload oder download.
get zeigt Werte des Antriebs, watch folgt ihnen, bis --seconds um sind oder er fort ist.
action startet die Aktion, die unter der Adresse steht, und wartet auf ihr Ende, höchstens
--seconds lang; der Fortschritt steht auf der Fehlerausgabe, das Ergebnis auf der Ausgabe.
set schreibt Paare aus Adresse und Anzeigetext; was vor einem abgewiesenen steht, ist
geschrieben. upload liest alle Werte und speichert sie in --project, wenn es gegeben ist;
download schreibt die Werte des Projekts, soweit der Antrieb sie speichert. Was geschrieben
wird, wird zurückgelesen; was der Antrieb daraus gemacht hat, wird gezeigt (Rückgabewert 1).
Ohne --json zeigen upload und download nur, was anders kam als erwartet; mit --json jeden Wert.
Was nicht gelesen wird, gibt 3, was der Antrieb ablehnt, 4, was verloren geht, 6; eine Aktion,
die nicht startbar ist, gibt 5, eine, die vor 100 % endet, 4, eine, die noch läuft, 3.
set, watch und action lesen zuerst den ganzen Antrieb. Wurde etwas nicht gelesen, gehen sie
nur ohne das weiter, wenn zu den genannten Werten keine Funktionen des Geräts gehören; die
können von jedem Wert abhängen. --despite-unread geht auch dann weiter und nennt, was fehlt.
Ohne die genannten Werte selbst geht es nie weiter.
</source>
        <translation>JOB is get, set, watch, action, upload or download.
get shows values of the drive, watch follows them until --seconds are over or it is gone.
action starts the action at the address and waits for its end, at most for --seconds; the
progress goes to the standard error, the result to the standard output.
set writes pairs of address and display text; what stands before a rejected one has been
written. upload reads all values and saves them in --project where it is given; download
writes the values of the project as far as the drive stores them. What is written is read
back; what the drive made of it is shown (exit code 1).
Without --json upload and download show only what came otherwise than expected; with --json
every value. What is not read gives 3, what the drive refuses 4, what is lost 6; an action
that cannot be started gives 5, one that ends before 100 % 4, one that still runs 3.
set, watch and action read the whole drive first. Where something was not read, they go on
without it only where no functions of the device belong to the named values; these may depend
on any value. --despite-unread goes on even then and names what is missing. They never go on
without the named values themselves.
</translation>
    </message>
    <message>
        <source>Dauer von watch und action, sonst ohne Ende</source>
        <translation>duration of watch and action, otherwise without end</translation>
    </message>
    <message>
        <source>set, watch und action auch ohne Werte, die nicht gelesen wurden</source>
        <translation>set, watch and action also without values that were not read</translation>
    </message>
    <message>
        <source>online %1 kennt die Option --despite-unread nicht</source>
        <translation>online %1 does not know the option --despite-unread</translation>
    </message>
    <message>
        <source>online braucht get, set, watch, action, upload oder download</source>
        <translation>online needs get, set, watch, action, upload or download</translation>
    </message>
    <message>
        <source>online action nimmt eine einzige Adresse</source>
        <translation>online action takes a single address</translation>
    </message>
</context>
<context>
    <name>OnlineCycle</name>
    <message>
        <source>Funktionen des Geräts ändern den Wert des Antriebs immer wieder</source>
        <translation>functions of the device change the drive's value again and again</translation>
    </message>
</context>
<context>
    <name>OnlineDialogue</name>
    <message>
        <source>der Antrieb ist nicht erreichbar: %1</source>
        <translation>the drive cannot be reached: %1</translation>
    </message>
    <message>
        <source>Gelesen: %1</source>
        <translation>Read: %1</translation>
    </message>
    <message>
        <source>nicht alle Werte wurden gelesen; --allow-loss speichert trotzdem</source>
        <translation>not all values were read; --allow-loss saves nevertheless</translation>
    </message>
    <message>
        <source>Geschrieben und zurückgelesen: %1</source>
        <translation>Written and read back: %1</translation>
    </message>
    <message>
        <source>nicht alle Werte des Antriebs wurden gelesen: %1</source>
        <translation>not all values of the drive were read: %1</translation>
    </message>
    <message>
        <source>der Antrieb ist fort: %1</source>
        <translation>the drive is gone: %1</translation>
    </message>
    <message>
        <source>Parameter %1 ist keine Aktion</source>
        <translation>Parameter %1 is no action</translation>
    </message>
    <message>
        <source>; --despite-unread geht ohne sie weiter</source>
        <translation>; --despite-unread goes on without them</translation>
    </message>
    <message>
        <source>Ohne diese Werte geht es weiter.</source>
        <translation>Going on without these values.</translation>
    </message>
</context>
<context>
    <name>OnlineOutcome</name>
    <message>
        <source>der Antrieb hat kein Register dafür</source>
        <translation>the drive has no register for it</translation>
    </message>
    <message>
        <source>%1: unverändert</source>
        <translation>%1: unchanged</translation>
    </message>
    <message>
        <source>%1: geändert</source>
        <translation>%1: changed</translation>
    </message>
    <message>
        <source>%1: geschrieben</source>
        <translation>%1: written</translation>
    </message>
    <message>
        <source>%1: geschrieben wurde &quot;%2&quot;, der Antrieb hat &quot;%3&quot;</source>
        <translation>%1: &quot;%2&quot; was written, the drive has &quot;%3&quot;</translation>
    </message>
    <message>
        <source>%1: abgelehnt - %2</source>
        <translation>%1: refused - %2</translation>
    </message>
    <message>
        <source>%1: verloren - %2</source>
        <translation>%1: lost - %2</translation>
    </message>
    <message>
        <source>%1: nicht übertragbar - %2</source>
        <translation>%1: cannot be transferred - %2</translation>
    </message>
    <message>
        <source>das Projekt hat den Wert nicht</source>
        <translation>the project does not have the value</translation>
    </message>
</context>
<context>
    <name>OnlineReport</name>
    <message>
        <source>%1 unverändert</source>
        <translation>%1 unchanged</translation>
    </message>
    <message>
        <source>%1 geändert</source>
        <translation>%1 changed</translation>
    </message>
    <message>
        <source>%1 geschrieben</source>
        <translation>%1 written</translation>
    </message>
    <message>
        <source>%1 vom Antrieb verändert</source>
        <translation>%1 altered by the drive</translation>
    </message>
    <message>
        <source>%1 abgelehnt</source>
        <translation>%1 refused</translation>
    </message>
    <message>
        <source>%1 verloren</source>
        <translation>%1 lost</translation>
    </message>
    <message>
        <source>%1 nicht übertragbar</source>
        <translation>%1 not transferable</translation>
    </message>
    <message>
        <source>%1 Werte: %2</source>
        <translation>%1 values: %2</translation>
    </message>
</context>
<context>
    <name>OnlineSession</name>
    <message>
        <source>der Antrieb antwortet nicht</source>
        <translation>the drive does not answer</translation>
    </message>
    <message>
        <source>die Verbindung wurde getrennt</source>
        <translation>the connection was closed</translation>
    </message>
    <message>
        <source>der Antrieb meldet sich nicht</source>
        <translation>the drive does not respond</translation>
    </message>
</context>
<context>
    <name>OnlineWatch</name>
    <message>
        <source>Der Antrieb ist fort: %1</source>
        <translation>The drive is gone: %1</translation>
    </message>
    <message>
        <source>Der Antrieb antwortet wieder.</source>
        <translation>The drive answers again.</translation>
    </message>
</context>
<context>
    <name>OutputFiles</name>
    <message>
        <source>%1 %2: die Datei wird gelesen</source>
        <translation>%1 %2: the file is read</translation>
    </message>
    <message>
        <source>%1 und %2 brauchen verschiedene Dateien</source>
        <translation>%1 and %2 need different files</translation>
    </message>
</context>
<context>
    <name>ParameterConversion</name>
    <message>
        <source>liegt über HighLimit; beide Grenzen weggelassen</source>
        <translation>is above HighLimit; both limits left out</translation>
    </message>
    <message>
        <source>liegt außerhalb seiner Grenzen; stattdessen %1</source>
        <translation>is outside of its limits; %1 instead</translation>
    </message>
    <message>
        <source>stattdessen %1</source>
        <translation>%1 instead</translation>
    </message>
    <message>
        <source>weggelassen</source>
        <translation>left out</translation>
    </message>
    <message>
        <source>liegt außerhalb seiner Grenzen; übernommen wie konfiguriert</source>
        <translation>is outside of its limits; taken as configured</translation>
    </message>
    <message>
        <source>der Datentyp 0x%1 ist keiner der Grundtypen</source>
        <translation>the data type 0x%1 is none of the basic ones</translation>
    </message>
    <message>
        <source>eine Gerätebeschreibung hat keinen Datentyp für %1</source>
        <translation>a device description has no data type for %1</translation>
    </message>
    <message>
        <source>keines seiner Unterobjekte hat einen Wert</source>
        <translation>none of its sub-objects has a value</translation>
    </message>
</context>
<context>
    <name>ProjectFolder</name>
    <message>
        <source>der Ordner ist nicht vorhanden</source>
        <translation>the folder does not exist</translation>
    </message>
    <message>
        <source>&quot;%1&quot; ist kein Blockname</source>
        <translation>&quot;%1&quot; is not a block name</translation>
    </message>
    <message>
        <source>der Ordner kann nicht angelegt werden</source>
        <translation>the folder cannot be created</translation>
    </message>
    <message>
        <source>ist keine Datei</source>
        <translation>is not a file</translation>
    </message>
    <message>
        <source>ist kein Ordner</source>
        <translation>is not a folder</translation>
    </message>
    <message>
        <source>der Ordner darf nicht gelesen werden</source>
        <translation>the folder may not be read</translation>
    </message>
</context>
<context>
    <name>ProjectStorage</name>
    <message>
        <source>%1 enthält kein Projekt: &quot;%2&quot; fehlt</source>
        <translation>%1 contains no project: &quot;%2&quot; is missing</translation>
    </message>
    <message>
        <source>abgebrochen</source>
        <translation>cancelled</translation>
    </message>
    <message>
        <source>%1: der Block &quot;%2&quot; ist abgeschnitten</source>
        <translation>%1: the block &quot;%2&quot; is truncated</translation>
    </message>
    <message>
        <source>nicht gespeichert: %1 Texte gingen verloren</source>
        <translation>not saved: %1 texts would be lost</translation>
    </message>
</context>
<context>
    <name>PropertyFilter</name>
    <message>
        <source>&quot;%1&quot; ist keine Bedingung der Form EIGENSCHAFT=WERT</source>
        <translation>&quot;%1&quot; is no condition of the form PROPERTY=VALUE</translation>
    </message>
</context>
<context>
    <name>ReadBackFile</name>
    <message>
        <source>in den Ordner kann nicht geschrieben werden</source>
        <translation>the folder cannot be written to</translation>
    </message>
    <message>
        <source>kann nicht geöffnet werden</source>
        <translation>cannot be opened</translation>
    </message>
    <message>
        <source>wurde nicht vollständig geschrieben</source>
        <translation>was not written completely</translation>
    </message>
    <message>
        <source>ist keine Datei</source>
        <translation>is not a file</translation>
    </message>
    <message>
        <source>darf nicht geschrieben werden</source>
        <translation>must not be written</translation>
    </message>
    <message>
        <source>der Ordner ist nicht vorhanden</source>
        <translation>the folder does not exist</translation>
    </message>
    <message>
        <source>ist ein Ordner</source>
        <translation>is a folder</translation>
    </message>
</context>
<context>
    <name>RegisterMap</name>
    <message>
        <source>der Datentyp ist unbekannt</source>
        <translation>the data type is unknown</translation>
    </message>
    <message>
        <source>der Wert ist länger als die %1 Register, die eine Anfrage schreibt</source>
        <translation>the value is longer than the %1 registers that one request writes</translation>
    </message>
    <message>
        <source>er läge hinter dem letzten der %1 Register</source>
        <translation>it would lie behind the last of the %1 registers</translation>
    </message>
    <message>
        <source>das Gerät hat dieses Element nicht</source>
        <translation>the device does not have this element</translation>
    </message>
</context>
<context>
    <name>ReportCommand</name>
    <message>
        <source>A, B und weitere sind Projektordner oder Dateien von snapshot; ein --project steht vor
ihnen. Gezeigt wird, was sich zwischen Nachbarn unterscheidet, von einem allein alles.
Werte über der Zugriffsstufe bleiben leer. Das Dokument verbietet Skripte und
Nachladen, und Namen darin sind maskiert; --exact schreibt es ohne beides.
</source>
        <translation>A, B and more are project folders or files of snapshot; a --project comes before them. What
differs between neighbours is shown, of a single one everything. Values above the access
level stay empty. The document forbids scripts and loading, and names in it are escaped;
--exact writes it without both.
</translation>
    </message>
    <message>
        <source>DATEI</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>HTML-Datei, die geschrieben wird</source>
        <translation>HTML file that is written</translation>
    </message>
    <message>
        <source>Namen als HTML, ohne Schutz; so wie das Fenster exportiert</source>
        <translation>names as HTML, without protection; as the window exports</translation>
    </message>
    <message>
        <source>der Bericht als PDF</source>
        <translation>the report as PDF</translation>
    </message>
    <message>
        <source>report braucht Projekte oder Snapshots</source>
        <translation>report needs projects or snapshots</translation>
    </message>
    <message>
        <source>report braucht -o DATEI oder --pdf DATEI</source>
        <translation>report needs -o FILE or --pdf FILE</translation>
    </message>
    <message>
        <source>Parameterwerte</source>
        <translation>Parameter values</translation>
    </message>
    <message>
        <source>Änderungen</source>
        <translation>Changes</translation>
    </message>
    <message>
        <source>%1: geschrieben und zurückgelesen</source>
        <translation>%1: written and read back</translation>
    </message>
    <message>
        <source>A [B...]</source>
        <translation>A [B...]</translation>
    </message>
    <message>
        <source>Bericht der Unterschiede als HTML und PDF</source>
        <translation>report of the differences as HTML and PDF</translation>
    </message>
</context>
<context>
    <name>RequestExchange</name>
    <message>
        <source>keine Antwort</source>
        <translation>no answer</translation>
    </message>
</context>
<context>
    <name>Session</name>
    <message>
        <source>krparameter: %1</source>
        <translation>krparameter: %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; ist keine Adresse; Adressen sind zum Beispiel E84, E30[1] und 2.B01</source>
        <translation>&quot;%1&quot; is not an address; addresses are, for example, E84, E30[1] and 2.B01</translation>
    </message>
    <message>
        <source>Parameter %1: das Gerät hat ihn nicht; list zeigt alle</source>
        <translation>Parameter %1: the device does not have it; list shows all</translation>
    </message>
    <message>
        <source>Parameter %1: Achse %2 gibt es nicht, nur %3</source>
        <translation>Parameter %1: there is no axis %2, only %3</translation>
    </message>
    <message>
        <source>Parameter %1: Element %2 gibt es nicht, nur %3</source>
        <translation>Parameter %1: there is no element %2, only %3</translation>
    </message>
    <message>
        <source>--axis nimmt eine Zahl von 1 bis 4</source>
        <translation>--axis takes a number from 1 to 4</translation>
    </message>
    <message>
        <source>es fehlt --device DATEI, zum Beispiel --device two-axis-drive</source>
        <translation>--device FILE is missing, for example --device two-axis-drive</translation>
    </message>
    <message>
        <source>Achse %1 gibt es nicht, nur %2</source>
        <translation>there is no axis %1, only %2</translation>
    </message>
    <message>
        <source>Projekt %1: neu, mit den Defaultwerten</source>
        <translation>Project %1: new, with the default values</translation>
    </message>
    <message>
        <source>Projekt %1: %2</source>
        <translation>Project %1: %2</translation>
    </message>
    <message>
        <source>; --force lädt ihn trotzdem</source>
        <translation>; --force loads it nevertheless</translation>
    </message>
    <message>
        <source>--access-level nimmt eine Zahl von 0 bis 6 oder mehr, nicht &quot;%1&quot;</source>
        <translation>--access-level takes a number from 0 to 6 or more, not &quot;%1&quot;</translation>
    </message>
    <message>
        <source>ist weder eine Datei noch eine mitgelieferte Beschreibung; mitgeliefert: %1</source>
        <translation>is neither a file nor a shipped description; shipped are: %1</translation>
    </message>
    <message>
        <source>ist ein Ordner</source>
        <translation>is a folder</translation>
    </message>
    <message>
        <source>darf nicht gelesen werden</source>
        <translation>may not be read</translation>
    </message>
</context>
<context>
    <name>SetCommand</name>
    <message>
        <source>set braucht Paare aus Adresse und Wert</source>
        <translation>set needs pairs of address and value</translation>
    </message>
    <message>
        <source>Es wurde nichts gespeichert.</source>
        <translation>Nothing was saved.</translation>
    </message>
    <message>
        <source>Parameter %1 hat mehrere Elemente; gebraucht wird eines, zum Beispiel %1[%2]</source>
        <translation>Parameter %1 has several elements; one is needed, for example %1[%2]</translation>
    </message>
    <message>
        <source>Parameter %1: das Gerät hat ihn nicht mehr</source>
        <translation>Parameter %1: the device no longer has it</translation>
    </message>
    <message>
        <source>Parameter %1: &quot;%2&quot; wurde abgewiesen</source>
        <translation>Parameter %1: &quot;%2&quot; was rejected</translation>
    </message>
    <message>
        <source>Parameter %1: &quot;%2&quot; wurde abgewiesen; zulässig: %3</source>
        <translation>Parameter %1: &quot;%2&quot; was rejected; permitted: %3</translation>
    </message>
    <message>
        <source>Ohne --project wird nichts gespeichert.</source>
        <translation>Without --project nothing is saved.</translation>
    </message>
    <message>
        <source>nicht gespeichert: das Projekt enthält, was dieses Gerät nicht kennt; --allow-loss speichert ohne es</source>
        <translation>not saved: the project contains content that this device does not know; --allow-loss saves without it</translation>
    </message>
    <message>
        <source>; --allow-loss speichert trotzdem</source>
        <translation>; --allow-loss saves nevertheless</translation>
    </message>
    <message>
        <source>Projekt %1: gespeichert und zurückgelesen</source>
        <translation>Project %1: saved and read back</translation>
    </message>
    <message>
        <source>ADRESSE WERT...</source>
        <translation>ADDRESS VALUE...</translation>
    </message>
    <message>
        <source>Werte schreiben und das Projekt speichern</source>
        <translation>write values and save the project</translation>
    </message>
    <message>
        <source>WERT ist ein Anzeigetext, so wie list ihn zeigt, mit oder ohne Einheit; eine Auswahl
nimmt Nummer oder Text. Die Paare werden der Reihe nach geschrieben; wird eines
abgewiesen, wird nichts gespeichert. Ohne --project wird nur gezeigt, was gälte.
Eingerückt folgt, was sich dadurch sonst ändert: Werte, Einheiten, Grenzen,
Sichtbarkeit; von den geschriebenen Werten selbst Einheiten, Grenzen, Sichtbarkeit.
</source>
        <translation>VALUE is a display text as shown by list, with or without its unit; a choice takes its
number or its text. The pairs are written in order; if one is rejected, nothing is
saved. Without --project the command only shows what would apply. Indented lines
follow with what changes elsewhere: values, units, limits, visibility; of the values
written themselves units, limits, visibility.
</translation>
    </message>
</context>
<context>
    <name>SimulateCommand</name>
    <message>
        <source>Der Antrieb beginnt mit den Werten des Projekts, sonst mit den Defaultwerten. Er prüft,
was geschrieben wird, führt seine Aktionen aus, bewegt seine Messwerte und ändert seinen
Zustand. --port 0 wählt einen freien Anschluss; die Ausgabe nennt ihn. Der Antrieb läuft,
bis er abgebrochen wird.
Die Standardeingabe nimmt Befehle, jeder in einer Zeile: lose N, double N, delay N MS,
refuse N und busy N stören die nächsten N Antworten, silent N lässt ihn nach N Antworten
verstummen, clear beendet alle Störungen; get ADRESSE, set ADRESSE WERT, tick N, quit.
</source>
        <translation>The drive begins with the values of the project, otherwise with the defaults. It checks what
is written, runs its actions, moves its measured values and changes its state. --port 0
picks a free port; the output names it. The drive runs until it is interrupted.
The standard input takes orders, one a line: lose N, double N, delay N MS, refuse N and
busy N disturb the next N answers, silent N lets it fall silent after N answers, clear ends
all disturbances; get ADDRESS, set ADDRESS VALUE, tick N, quit.
</translation>
    </message>
    <message>
        <source>MS</source>
        <translation>MS</translation>
    </message>
    <message>
        <source>Schritt von Aktionen und Messwerten, sonst 20 ms; 0 hält sie an</source>
        <translation>step of actions and measured values, otherwise 20 ms; 0 stops them</translation>
    </message>
    <message>
        <source>simulate nimmt keine Argumente</source>
        <translation>simulate takes no arguments</translation>
    </message>
    <message>
        <source>%1 hat kein Register: %2</source>
        <translation>%1 has no register: %2</translation>
    </message>
    <message>
        <source>%1, Anschluss %2: %3</source>
        <translation>%1, port %2: %3</translation>
    </message>
    <message>
        <source>Der Antrieb antwortet auf %1, Anschluss %2.</source>
        <translation>The drive answers on %1, port %2.</translation>
    </message>
    <message>
        <source>einen Antrieb simulieren, der Modbus TCP spricht</source>
        <translation>simulate a drive that speaks Modbus TCP</translation>
    </message>
</context>
<context>
    <name>SinkPrinter</name>
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
    <name>SnapshotCommand</name>
    <message>
        <source>DATEI</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>Datei, die geschrieben wird; sonst die Ausgabe</source>
        <translation>file that is written; otherwise the output</translation>
    </message>
    <message>
        <source>%1: %2 Parameter eingefroren</source>
        <translation>%1: %2 parameters frozen</translation>
    </message>
    <message>
        <source>Texte einfrieren und als JSON schreiben</source>
        <translation>freeze texts and write them as JSON</translation>
    </message>
    <message>
        <source>Sie enthält alle Werte, auch die über der Zugriffsstufe.
</source>
        <translation>It holds all values, also those above the access level.
</translation>
    </message>
    <message>
        <source>[A]</source>
        <translation>[A]</translation>
    </message>
    <message>
        <source>Schreibt die Texte aller Werte, so wie sie jetzt gelten, in eine Datei, die diff,
export und report wie ein Projekt lesen. Sie braucht dann kein Gerät mehr.
A ist ein Projektordner oder eine solche Datei; ohne A und --project gelten die
Defaultwerte.
</source>
        <translation>Writes the texts of all values as they are now to a file that diff, export and report read
like a project. It then needs no device any more.
A is a project folder or such a file; without A and --project the defaults hold.
</translation>
    </message>
    <message>
        <source>snapshot nimmt höchstens ein Projekt oder einen Snapshot</source>
        <translation>snapshot takes one project or snapshot at most</translation>
    </message>
</context>
<context>
    <name>SnapshotFile</name>
    <message>
        <source>ist keine Datei</source>
        <translation>is not a file</translation>
    </message>
</context>
<context>
    <name>SnapshotSource</name>
    <message>
        <source>EIGENSCHAFT=WERT</source>
        <translation>PROPERTY=VALUE</translation>
    </message>
    <message>
        <source>nur diese Werte, mehrfach möglich</source>
        <translation>only these values, may be repeated</translation>
    </message>
    <message>
        <source>Die Eigenschaft &quot;%1&quot; ist unbekannt und antwortet wie &quot;Coordinate&quot;.</source>
        <translation>The property &quot;%1&quot; is unknown and answers like &quot;Coordinate&quot;.</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Default</translation>
    </message>
    <message>
        <source>%1: weder Projektordner noch Snapshot</source>
        <translation>%1: neither project folder nor snapshot</translation>
    </message>
    <message>
        <source>--filter wählt aus Projekten; %1 ist ein Snapshot</source>
        <translation>--filter selects from projects; %1 is a snapshot</translation>
    </message>
    <message>
        <source>Ein Element, das auf einer Achse nicht passt, fehlt auf allen.
</source>
        <translation>An element that does not match on one axis is missing on all.
</translation>
    </message>
    <message>
        <source>Ein Element, das auf einer Achse einer Seite passt, wird auf allen Achsen aller Seiten
verglichen.
</source>
        <translation>An element that matches on one axis of one side is compared on all axes of all sides.
</translation>
    </message>
    <message>
        <source>Verschiedene Eigenschaften in --filter gelten zugleich, Werte derselben wahlweise. Ein
Wert gilt ganz und mit Groß- und Kleinschreibung; Address hat die Form 1.H000[00000].
</source>
        <translation>Different properties in --filter hold at once, values of the same one alternatively. A value
counts in full and with case; Address has the form 1.H000[00000].
</translation>
    </message>
    <message>
        <source>Eigenschaften sind:
</source>
        <translation>Properties are:
</translation>
    </message>
</context>
<context>
    <name>StagedFile</name>
    <message>
        <source>nicht alle Bytes konnten geschrieben werden</source>
        <translation>not all bytes could be written</translation>
    </message>
    <message>
        <source>das Gelesene unterscheidet sich vom Geschriebenen</source>
        <translation>what was read back differs from what was written</translation>
    </message>
    <message>
        <source>ist ein Ordner</source>
        <translation>is a folder</translation>
    </message>
    <message>
        <source>ist keine Datei</source>
        <translation>is not a file</translation>
    </message>
    <message>
        <source>der Ordner ist nicht vorhanden</source>
        <translation>the folder does not exist</translation>
    </message>
    <message>
        <source>darf nicht geschrieben werden</source>
        <translation>may not be written</translation>
    </message>
</context>
<context>
    <name>UnreadValues</name>
    <message>
        <source>und %1 weitere Werte nicht gelesen</source>
        <translation>and %1 more values not read</translation>
    </message>
</context>
<context>
    <name>ValueView</name>
    <message>
        <source>dieser Text wird als Eingabe nicht angenommen</source>
        <translation>this text is not accepted when typed in</translation>
    </message>
    <message>
        <source>als Eingabe ergibt dieser Text nativ &quot;%1&quot;</source>
        <translation>when typed in, this text yields the native value &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Parameter %1 ist nicht schreibbar</source>
        <translation>Parameter %1 is not writable</translation>
    </message>
    <message>
        <source>: er wird nur gelesen</source>
        <translation>: it is read-only</translation>
    </message>
    <message>
        <source>: er braucht Zugriffsstufe %1, gegeben ist %2</source>
        <translation>: it needs access level %1, the current level is %2</translation>
    </message>
    <message>
        <source>: er wird nur online geschrieben</source>
        <translation>: it is written online only</translation>
    </message>
    <message>
        <source>Anzeige</source>
        <translation>Display</translation>
    </message>
    <message>
        <source>Wert</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>Nativ</source>
        <translation>Native</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Default</translation>
    </message>
    <message>
        <source>Grenzen</source>
        <translation>Limits</translation>
    </message>
    <message>
        <source>Auswahl</source>
        <translation>Choices</translation>
    </message>
    <message>
        <source>Zugriff</source>
        <translation>Access</translation>
    </message>
    <message>
        <source>Hinweis</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>offline verdeckt; Stufe 5 zeigt den Wert in Klammern</source>
        <translation>masked offline; level 5 shows the value in brackets</translation>
    </message>
    <message>
        <source>bis %1</source>
        <translation>up to %1</translation>
    </message>
    <message>
        <source>ab %1</source>
        <translation>%1 and above</translation>
    </message>
    <message>
        <source>%1 bis %2</source>
        <translation>%1 to %2</translation>
    </message>
    <message>
        <source>lesen ab Stufe %1, schreiben ab Stufe %2</source>
        <translation>read from level %1, write from level %2</translation>
    </message>
    <message>
        <source>; für diesen Benutzer nicht sichtbar</source>
        <translation>; not visible to this user</translation>
    </message>
    <message>
        <source>; für diesen Benutzer nicht schreibbar</source>
        <translation>; not writable for this user</translation>
    </message>
    <message>
        <source>eine Adresse, zum Beispiel E84, E30[1] oder 2.B01</source>
        <translation>an address, for example E84, E30[1] or 2.B01</translation>
    </message>
    <message>
        <source>eine Zahl</source>
        <translation>a number</translation>
    </message>
    <message>
        <source>ein Text mit höchstens %1 Zeichen aus Latin-1</source>
        <translation>a text of at most %1 characters of Latin-1</translation>
    </message>
    <message>
        <source>höchstens %1 Bytes als Paare hexadezimaler Ziffern</source>
        <translation>at most %1 bytes as pairs of hexadecimal digits</translation>
    </message>
    <message>
        <source>  Hinweis: %1</source>
        <translation>  Note: %1</translation>
    </message>
    <message>
        <source>  Hinweis zu &quot;%1&quot;: %2</source>
        <translation>  Note on &quot;%1&quot;: %2</translation>
    </message>
</context>
<context>
    <name>WholeFile</name>
    <message>
        <source>ist nicht vorhanden</source>
        <translation>does not exist</translation>
    </message>
    <message>
        <source>darf nicht gelesen werden</source>
        <translation>may not be read</translation>
    </message>
    <message>
        <source>ist ein Ordner</source>
        <translation>is a folder</translation>
    </message>
    <message>
        <source>ist länger als %1 MiB</source>
        <translation>is longer than %1 MiB</translation>
    </message>
</context>
</TS>
