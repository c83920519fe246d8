<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="de">
<context>
    <name>CoordinateInstanceSet</name>
    <message>
        <source> verursacht zyklisch Aktualisierungen der Parametersichtbarkeit. Mehr als zehn davon wurden in den letzten 5 Sekunden unterdrückt!</source>
        <translation> causes cyclic updates of the parameter visibility. More than ten of them were suppressed in the last 5 seconds!</translation>
    </message>
</context>
<context>
    <name>ParameterContainerPrivate</name>
    <message>
        <source> löst zu viele aufeinander folgende Änderungen aus. Die weiteren Abhängigkeiten wurden nicht mehr ausgeführt!</source>
        <translation> causes too many changes that follow from each other. The further dependencies were not carried out any more!</translation>
    </message>
</context>
<context>
    <name>ParameterInstanceData</name>
    <message>
        <source>Wert von Parameter %1 korrigiert!</source>
        <translation>Value of parameter %1 corrected!</translation>
    </message>
    <message>
        <source>Default-Wert von Parameter %1 korrigiert!</source>
        <translation>Default value of parameter %1 corrected!</translation>
    </message>
</context>
<context>
    <name>ParameterValueSnapshotWidget</name>
    <message>
        <source>Spalte &quot;%1&quot; exportieren</source>
        <translation>Export column &quot;%1&quot;</translation>
    </message>
    <message>
        <source>HTML exportieren</source>
        <translation>Export HTML</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Parameterwerte exportieren</source>
        <translation>Export parameter values</translation>
    </message>
    <message>
        <source>Textdateien (*.txt)</source>
        <translation>Text files (*.txt)</translation>
    </message>
    <message>
        <source>Änderungen als HTML exportieren</source>
        <translation>Export changes as HTML</translation>
    </message>
    <message>
        <source>HTML-dateien (*.html)</source>
        <translation>HTML files (*.html)</translation>
    </message>
    <message>
        <source>&lt;nicht vorhanden&gt;</source>
        <translation>&lt;not present&gt;</translation>
    </message>
</context>
<context>
    <name>RejectionReport</name>
    <message>
        <source>Wert &quot;%1&quot; ist ungültig</source>
        <translation>Value &quot;%1&quot; is invalid</translation>
    </message>
    <message>
        <source>Wert &quot;%1&quot; ist zu klein</source>
        <translation>Value &quot;%1&quot; is too small</translation>
    </message>
    <message>
        <source>Wert &quot;%1&quot; ist zu groß</source>
        <translation>Value &quot;%1&quot; is too large</translation>
    </message>
    <message>
        <source>Parameter %1: Fehler beim Übernehmen des Werts</source>
        <translation>Parameter %1: error while applying the value</translation>
    </message>
    <message>
        <source>Parameter %1: Fehler beim Vorbereiten des Werts</source>
        <translation>Parameter %1: error while preparing the value</translation>
    </message>
</context>
</TS>
