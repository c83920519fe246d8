<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>FindingText</name>
    <message>
        <source>the file is larger than %1 bytes</source>
        <translation>die Datei ist größer als %1 Bytes</translation>
    </message>
    <message>
        <source>the file is not UTF-8</source>
        <translation>die Datei ist nicht UTF-8</translation>
    </message>
    <message>
        <source>expected &quot;%1&quot;</source>
        <translation>erwartet: &quot;%1&quot;</translation>
    </message>
    <message>
        <source>expected at least one axis</source>
        <translation>erwartet: mindestens eine Achse</translation>
    </message>
    <message>
        <source>expected axes in ascending order</source>
        <translation>erwartet: Achsen in aufsteigender Folge</translation>
    </message>
    <message>
        <source>expected 1 to %1 languages</source>
        <translation>erwartet: 1 bis %1 Sprachen</translation>
    </message>
    <message>
        <source>is listed twice</source>
        <translation>ist zweimal aufgeführt</translation>
    </message>
    <message>
        <source>expected the short name of a data type, such as &quot;UINT16&quot;</source>
        <translation>erwartet: der Kurzname eines Datentyps wie &quot;UINT16&quot;</translation>
    </message>
    <message>
        <source>another parameter has the number %1</source>
        <translation>ein anderer Parameter hat die Nummer %1</translation>
    </message>
    <message>
        <source>%1 is the coordinate of the single-instance parameter %2</source>
        <translation>%1 ist die Koordinate des Parameters %2, der nur einmal vorkommt</translation>
    </message>
    <message>
        <source>the family %1 is known already as &quot;%2&quot;, not as &quot;%3&quot;</source>
        <translation>die Familie %1 ist schon als &quot;%2&quot; bekannt, nicht als &quot;%3&quot;</translation>
    </message>
    <message>
        <source>the family %1 is known already, with another value</source>
        <translation>die Familie %1 ist schon bekannt, mit einem anderen Wert</translation>
    </message>
    <message>
        <source>unknown key; known are %1</source>
        <translation>unbekannter Schlüssel; bekannt sind %1</translation>
    </message>
    <message>
        <source>is missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>expected a list</source>
        <translation>erwartet: eine Liste</translation>
    </message>
    <message>
        <source>expected an object</source>
        <translation>erwartet: ein Objekt</translation>
    </message>
    <message>
        <source>expected a text</source>
        <translation>erwartet: ein Text</translation>
    </message>
    <message>
        <source>expected a text that is not empty</source>
        <translation>erwartet: ein Text, der nicht leer ist</translation>
    </message>
    <message>
        <source>expected true or false</source>
        <translation>erwartet: true oder false</translation>
    </message>
    <message>
        <source>expected a whole number from %1 to %2</source>
        <translation>erwartet: eine ganze Zahl von %1 bis %2</translation>
    </message>
    <message>
        <source>expected a key that is a whole number from %1 to %2</source>
        <translation>erwartet: ein Schlüssel, der eine ganze Zahl von %1 bis %2 ist</translation>
    </message>
    <message>
        <source>expected a text or an object of texts by language</source>
        <translation>erwartet: ein Text oder ein Objekt mit Texten je Sprache</translation>
    </message>
    <message>
        <source>expected a text for at least one language</source>
        <translation>erwartet: ein Text in mindestens einer Sprache</translation>
    </message>
    <message>
        <source>expected one of the languages %1</source>
        <translation>erwartet: eine der Sprachen %1</translation>
    </message>
    <message>
        <source>expected a text or an object with the keys short, long</source>
        <translation>erwartet: ein Text oder ein Objekt mit den Schlüsseln short, long</translation>
    </message>
    <message>
        <source>expected a number or a text</source>
        <translation>erwartet: eine Zahl oder ein Text</translation>
    </message>
    <message>
        <source>the data type (16) must not be absent</source>
        <translation>der Datentyp (16) darf nicht fehlen</translation>
    </message>
    <message>
        <source>is missing, in the element and in its profile</source>
        <translation>fehlt, im Element und in seinem Profil</translation>
    </message>
    <message>
        <source>the default lies outside of the limits or choices</source>
        <translation>der Defaultwert liegt außerhalb der Grenzen oder der Auswahl</translation>
    </message>
    <message>
        <source>expected at most the upper limit %1</source>
        <translation>erwartet: höchstens die obere Grenze %1</translation>
    </message>
    <message>
        <source>expected the number of an element property</source>
        <translation>erwartet: die Nummer einer Eigenschaft des Elements</translation>
    </message>
    <message>
        <source>is for elements of a record only</source>
        <translation>gilt nur für Elemente eines Records</translation>
    </message>
    <message>
        <source>unknown key</source>
        <translation>unbekannter Schlüssel</translation>
    </message>
    <message>
        <source>expected one of the description&apos;s data types %1</source>
        <translation>erwartet: einer der Datentypen der Beschreibung %1</translation>
    </message>
    <message>
        <source>expected a number that a 32-bit float holds</source>
        <translation>erwartet: eine Zahl, die eine Gleitkommazahl mit 32 Bit fasst</translation>
    </message>
    <message>
        <source>a limit plays no part for the data type %1</source>
        <translation>eine Grenze ist für den Datentyp %1 ohne Bedeutung</translation>
    </message>
    <message>
        <source>begins with &apos;&lt;&apos; and is no unit locator such as &quot;&lt;localAxis:E12&gt;&quot;</source>
        <translation>beginnt mit &apos;&lt;&apos; und ist kein Verweis auf eine Einheit wie &quot;&lt;localAxis:E12&gt;&quot;</translation>
    </message>
    <message>
        <source>expected a text or a whole number from %1 to %2</source>
        <translation>erwartet: ein Text oder eine ganze Zahl von %1 bis %2</translation>
    </message>
    <message>
        <source>%1 function %2 of parameter %3, element %4</source>
        <translation>Funktion %1 %2 des Parameters %3, Element %4</translation>
    </message>
    <message>
        <source>the function is longer than %1 bytes</source>
        <translation>die Funktion ist länger als %1 Bytes</translation>
    </message>
    <message>
        <source>; the function is not run again</source>
        <translation>; die Funktion wird nicht noch einmal ausgeführt</translation>
    </message>
    <message>
        <source>; after %1 such functions none of the device is run again</source>
        <translation>; nach %1 solchen Funktionen wird keine des Geräts mehr ausgeführt</translation>
    </message>
    <message>
        <source>expected a text or a list of lines</source>
        <translation>erwartet: ein Text oder eine Liste von Zeilen</translation>
    </message>
    <message>
        <source>there is no system string %1; the highest is %2</source>
        <translation>es gibt keinen Systemtext %1; der höchste ist %2</translation>
    </message>
    <message>
        <source>there is no function %1; the highest is %2</source>
        <translation>es gibt keine Funktion %1; die höchste ist %2</translation>
    </message>
    <message>
        <source>a %1</source>
        <translation>ein Wert der Art %1</translation>
    </message>
    <message>
        <source>expected a number or nil as limit, not %1</source>
        <translation>erwartet: eine Zahl oder nil als Grenze, nicht %1</translation>
    </message>
    <message>
        <source>expected a factor other than 0 that 32 bits hold, not %1</source>
        <translation>erwartet: ein Faktor ungleich 0, den 32 Bit fassen, nicht %1</translation>
    </message>
    <message>
        <source>expected a full-scale value from 0 to 4294967295, not %1</source>
        <translation>erwartet: ein Vollausschlag von 0 bis 4294967295, nicht %1</translation>
    </message>
    <message>
        <source>expected true, false or nil, not %1</source>
        <translation>erwartet: true, false oder nil, nicht %1</translation>
    </message>
    <message>
        <source>further failures of functions are not told for this change</source>
        <translation>weitere Fehler von Funktionen werden zu dieser Änderung nicht gemeldet</translation>
    </message>
    <message>
        <source>expected the end of the file</source>
        <translation>erwartet: das Ende der Datei</translation>
    </message>
    <message>
        <source>nested deeper than %1 levels</source>
        <translation>tiefer als %1 Ebenen geschachtelt</translation>
    </message>
    <message>
        <source>more than %1 values</source>
        <translation>mehr als %1 Werte</translation>
    </message>
    <message>
        <source>expected &apos;,&apos; or &apos;]&apos;</source>
        <translation>erwartet: &apos;,&apos; oder &apos;]&apos;</translation>
    </message>
    <message>
        <source>expected a key in quotes</source>
        <translation>erwartet: ein Schlüssel in Anführungszeichen</translation>
    </message>
    <message>
        <source>expected &apos;:&apos;</source>
        <translation>erwartet: &apos;:&apos;</translation>
    </message>
    <message>
        <source>expected &apos;,&apos; or &apos;}&apos;</source>
        <translation>erwartet: &apos;,&apos; oder &apos;}&apos;</translation>
    </message>
    <message>
        <source>the object has the key &quot;%1&quot; twice</source>
        <translation>das Objekt hat den Schlüssel &quot;%1&quot; zweimal</translation>
    </message>
    <message>
        <source>expected a value</source>
        <translation>erwartet: ein Wert</translation>
    </message>
    <message>
        <source>expected &apos;&quot;&apos; at the end of the text</source>
        <translation>erwartet: &apos;&quot;&apos; am Ende des Textes</translation>
    </message>
    <message>
        <source>the text has half of a surrogate pair</source>
        <translation>der Text enthält ein halbes Surrogatpaar</translation>
    </message>
    <message>
        <source>unknown escape</source>
        <translation>unbekannte Escape-Folge</translation>
    </message>
    <message>
        <source>expected four hexadecimal digits</source>
        <translation>erwartet: vier hexadezimale Ziffern</translation>
    </message>
    <message>
        <source>line %1, column %2: %3</source>
        <translation>Zeile %1, Spalte %2: %3</translation>
    </message>
    <message>
        <source>an error without a text (a %1)</source>
        <translation>ein Fehler ohne Text (Art %1)</translation>
    </message>
    <message>
        <source>an error without a text</source>
        <translation>ein Fehler ohne Text</translation>
    </message>
    <message>
        <source>the functions need too much memory</source>
        <translation>die Funktionen brauchen zu viel Speicher</translation>
    </message>
    <message>
        <source>the function is nested too deeply</source>
        <translation>die Funktion ist zu tief geschachtelt</translation>
    </message>
    <message>
        <source>the budget of %1 instructions is spent</source>
        <translation>der Vorrat von %1 Anweisungen ist verbraucht</translation>
    </message>
    <message>
        <source>more than %1 bytes of memory, or %2 in one piece, are needed</source>
        <translation>mehr als %1 Bytes Speicher, oder %2 am Stück, werden gebraucht</translation>
    </message>
    <message>
        <source>the functions are nested too deeply</source>
        <translation>die Funktionen sind zu tief geschachtelt</translation>
    </message>
    <message>
        <source>the functions that follow from one change need more than %1 instructions; the rest of them is not run</source>
        <translation>die Funktionen, die einer Änderung folgen, brauchen mehr als %1 Anweisungen; die übrigen werden nicht ausgeführt</translation>
    </message>
    <message>
        <source>a double does not hold this number exactly; write it as the text &quot;%1&quot;</source>
        <translation>diese Zahl ist als double nicht genau darstellbar; zu schreiben als Text &quot;%1&quot;</translation>
    </message>
    <message>
        <source>expected a number of the data type %1</source>
        <translation>erwartet: eine Zahl des Datentyps %1</translation>
    </message>
    <message>
        <source>expected pairs of hexadecimal digits for at most %1 bytes</source>
        <translation>erwartet: Paare hexadezimaler Ziffern für höchstens %1 Bytes</translation>
    </message>
    <message>
        <source>expected at most %1 Latin-1 characters</source>
        <translation>erwartet: höchstens %1 Latin-1-Zeichen</translation>
    </message>
    <message>
        <source>expected &quot;single&quot; for a system parameter</source>
        <translation>erwartet: &quot;single&quot; bei einem Systemparameter</translation>
    </message>
    <message>
        <source>an anchor that begins with &quot;S&quot; is for system parameters only</source>
        <translation>ein Anker, der mit &quot;S&quot; beginnt, gilt nur für Systemparameter</translation>
    </message>
    <message>
        <source>expected a coordinate: a letter from A to Z and one to three digits</source>
        <translation>erwartet: eine Koordinate: ein Buchstabe von A bis Z und ein bis drei Ziffern</translation>
    </message>
    <message>
        <source>expected at least one coordinate for a single-instance parameter</source>
        <translation>erwartet: mindestens eine Koordinate bei einem Parameter, der nur einmal vorkommt</translation>
    </message>
    <message>
        <source>expected 1 to %1 elements</source>
        <translation>erwartet: 1 bis %1 Elemente</translation>
    </message>
    <message>
        <source>expected exactly one element for a simple parameter</source>
        <translation>erwartet: genau ein Element bei einem einfachen Parameter</translation>
    </message>
    <message>
        <source>is for simple parameters only</source>
        <translation>gilt nur für einfache Parameter</translation>
    </message>
    <message>
        <source>expected at most %1 defaults, as many as elements</source>
        <translation>erwartet: höchstens %1 Defaultwerte, so viele wie Elemente</translation>
    </message>
    <message>
        <source>another element has the number %1</source>
        <translation>ein anderes Element hat die Nummer %1</translation>
    </message>
    <message>
        <source>a name with &apos;&lt;&apos;, &apos;&gt;&apos; or &apos;&amp;&apos; may be taken for markup</source>
        <translation>ein Name mit &apos;&lt;&apos;, &apos;&gt;&apos; oder &apos;&amp;&apos; kann als Auszeichnung gelesen werden</translation>
    </message>
    <message>
        <source>expected &quot;%1&quot; or &quot;%2&quot;</source>
        <translation>erwartet: &quot;%1&quot; oder &quot;%2&quot;</translation>
    </message>
    <message>
        <source>expected the name of a profile</source>
        <translation>erwartet: der Name eines Profils</translation>
    </message>
    <message>
        <source>a profile must not depend on itself</source>
        <translation>ein Profil darf nicht von sich selbst abhängen</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>there is no container</source>
        <translation>es gibt keinen Container</translation>
    </message>
    <message>
        <source>limit, scaling and hiding functions only read</source>
        <translation>Funktionen für Grenzen, Skalierung und Ausblenden lesen nur</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a local and cannot be set</source>
        <translation>&apos;%1&apos; ist nicht lokal und kann nicht gesetzt werden</translation>
    </message>
    <message>
        <source>after a write or a message this is not known any more; read it into a local before</source>
        <translation>nach dem Schreiben oder einer Meldung ist dies nicht mehr bekannt; zuvor in eine lokale Variable lesen</translation>
    </message>
    <message>
        <source>the parameter has no such field</source>
        <translation>der Parameter hat kein solches Feld</translation>
    </message>
    <message>
        <source>the parameter&apos;s fields are read only</source>
        <translation>die Felder des Parameters werden nur gelesen</translation>
    </message>
    <message>
        <source>line %1:%2</source>
        <translation>Zeile %1:%2</translation>
    </message>
</context>
</TS>
