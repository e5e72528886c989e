<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>AlignReport</name>
    <message numerus="yes">
        <source> and %Ln more</source>
        <translation>
            <numerusform> und noch %Ln</numerusform>
            <numerusform> und noch %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>1 picture</source>
        <translation>1 Bild</translation>
    </message>
    <message numerus="yes">
        <source>%Ln pictures</source>
        <translation>
            <numerusform>%Ln Bild</numerusform>
            <numerusform>%Ln Bilder</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1, %Ln joined</source>
        <translation>
            <numerusform>%1, %Ln verbunden</numerusform>
            <numerusform>%1, %Ln verbunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %Ln held by the head: %1</source>
        <translation>
            <numerusform>, %Ln nur nach dem Kopf ausgerichtet: %1</numerusform>
            <numerusform>, %Ln nur nach dem Kopf ausgerichtet: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>points miss each other by %1 pixels, at worst %2 (%3, %4)</source>
        <translation>Kontrollpunkte verfehlen einander um %1 Pixel, schlimmstenfalls um %2 (%3, %4)</translation>
    </message>
    <message>
        <source>focal length %1 mm (%2 stated), distortion %3</source>
        <translation>Brennweite %1&#xa0;mm (angegeben: %2), Verzeichnung %3</translation>
    </message>
    <message>
        <source>pictures were %1 degrees off the grid, at worst %2</source>
        <translation>Die Bilder lagen um %1 Grad neben dem Raster, schlimmstenfalls um %2</translation>
    </message>
    <message>
        <source>the head was %1 degrees off, at worst %2</source>
        <translation>Der Kopf lag um %1 Grad daneben, schlimmstenfalls um %2</translation>
    </message>
    <message>
        <source> and </source>
        <translation> und </translation>
    </message>
    <message>
        <source>%1 %2 s</source>
        <translation>%1 %2&#xa0;s</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>%1 in a row and %2 in a column</source>
        <translation>%1 in der Zeile und %2 in der Spalte</translation>
    </message>
    <message>
        <source>%1 in a row</source>
        <translation>%1 in der Zeile</translation>
    </message>
    <message>
        <source>%1 in a column</source>
        <translation>%1 in der Spalte</translation>
    </message>
    <message>
        <source>no points were looked for, as asked: positions are the recorded ones</source>
        <translation>Wie gewünscht wurden keine Kontrollpunkte gesucht: Die Positionen sind die aufgezeichneten</translation>
    </message>
    <message numerus="yes">
        <source>in %Ln parts that no points join: only the head tells how they lie</source>
        <translation>
            <numerusform>In %Ln Teil, den keine Kontrollpunkte verbinden: Nur der Kopf sagt, wie er liegt</numerusform>
            <numerusform>In %Ln Teilen, die keine Kontrollpunkte verbinden: Nur der Kopf sagt, wie sie zueinander liegen</numerusform>
        </translation>
    </message>
    <message>
        <source>positions are the recorded ones, as asked</source>
        <translation>Die Positionen sind wie gewünscht die aufgezeichneten</translation>
    </message>
    <message>
        <source>neighbours overlap by %1 (%2 stated)</source>
        <translation>Nachbarn überlappen sich um %1 (angegeben: %2)</translation>
    </message>
    <message>
        <source>the pictures do not fit the grid: wrong rows, order, overlap, focal length or lens type?</source>
        <translation>Die Bilder passen nicht zum Raster: falsche Zeilen, Reihenfolge, Überlappung, Brennweite oder falscher Objektivtyp?</translation>
    </message>
    <message>
        <source>the pictures do not fit what was recorded: a wrong focal length or lens type, or the file of another shooting?</source>
        <translation>Die Bilder passen nicht zur Aufzeichnung: falsche Brennweite, falscher Objektivtyp oder die Datei einer anderen Aufnahme?</translation>
    </message>
    <message>
        <source>%1 (%2 degrees)</source>
        <translation>%1 (%2 Grad)</translation>
    </message>
    <message>
        <source>further off than they should be: %1</source>
        <translation>Weiter daneben, als sie sein sollten: %1</translation>
    </message>
    <message>
        <source>match none of their neighbours, perhaps the wrong pictures: %1</source>
        <translation>Passen zu keinem ihrer Nachbarn, vielleicht die falschen Bilder: %1</translation>
    </message>
    <message>
        <source>should overlap and do not match: %1</source>
        <translation>Sollten sich überlappen, passen aber nicht zusammen: %1</translation>
    </message>
</context>
<context>
    <name>DroppedFiles</name>
    <message>
        <source>The folder “%1” holds no pictures and no file of a head.</source>
        <translation>Der Ordner „%1“ enthält weder Bilder noch die Datei eines Kopfes.</translation>
    </message>
    <message>
        <source>“%1” is neither a picture nor the file of a head.</source>
        <translation>„%1“ ist weder ein Bild noch die Datei eines Kopfes.</translation>
    </message>
</context>
<context>
    <name>FinishingPane</name>
    <message>
        <source>&amp;Align</source>
        <translation>&amp;Ausrichten</translation>
    </message>
    <message>
        <source>&amp;Preview</source>
        <translation>&amp;Vorschau</translation>
    </message>
    <message>
        <source>&amp;Make panorama…</source>
        <translation>&amp;Panorama erstellen…</translation>
    </message>
    <message>
        <source>Finds the same things in neighbouring pictures and puts the pictures where they fit together, into the same project.</source>
        <translation>Findet in benachbarten Bildern dieselben Stellen und rückt die Bilder so zurecht, dass sie zusammenpassen; das Ergebnis kommt in dasselbe Projekt.</translation>
    </message>
    <message>
        <source>Aligns the pictures, unless that is done, and shows quickly and small what the panorama will be.</source>
        <translation>Richtet die Bilder aus, falls das noch nicht geschehen ist, und zeigt schnell und klein, wie das Panorama wird.</translation>
    </message>
    <message>
        <source>Aligns the pictures, unless that is done, and blends them into one.</source>
        <translation>Richtet die Bilder aus, falls das noch nicht geschehen ist, und fügt sie zu einem Bild zusammen.</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>Ab&amp;brechen</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>%1: %2 × %3 pixels</source>
        <translation>%1: %2 × %3 Pixel</translation>
    </message>
    <message>
        <source>Getting ready</source>
        <translation>Wird vorbereitet</translation>
    </message>
    <message>
        <source>%1: %2 %</source>
        <translation>%1: %2&#xa0;%</translation>
    </message>
    <message>
        <source>Cancelled. What was found so far is kept, and the next try goes on from it.</source>
        <translation>Abgebrochen. Was bis hierher gefunden wurde, bleibt erhalten; der nächste Versuch macht dort weiter.</translation>
    </message>
    <message>
        <source>Align</source>
        <translation>Ausrichten</translation>
    </message>
    <message>
        <source>“%1” has been changed since it was written. Aligning begins from the import again and writes over it. Go on?</source>
        <translation>„%1“ wurde verändert, seit es geschrieben wurde. Das Ausrichten beginnt wieder beim Import und überschreibt es. Trotzdem ausrichten?</translation>
    </message>
    <message>
        <source>JPEG pictures (*.jpg)</source>
        <translation>JPEG-Bilder (*.jpg)</translation>
    </message>
    <message>
        <source>TIFF pictures, 16 bits (*.tif)</source>
        <translation>TIFF-Bilder, 16 Bit (*.tif)</translation>
    </message>
    <message>
        <source>OpenEXR pictures, radiance (*.exr)</source>
        <translation>OpenEXR-Bilder, Radianz (*.exr)</translation>
    </message>
    <message>
        <source>Save the panorama</source>
        <translation>Panorama speichern</translation>
    </message>
    <message>
        <source>“%1” cannot be written: %2.</source>
        <translation>„%1“ kann nicht geschrieben werden: %2.</translation>
    </message>
</context>
<context>
    <name>HeadFile</name>
    <message>
        <source>“%1” cannot be opened: %2.</source>
        <translation>„%1“ kann nicht geöffnet werden: %2.</translation>
    </message>
    <message>
        <source>“%1” is damaged or no shooting file. Line %2: %3</source>
        <translation>„%1“ ist beschädigt oder keine Aufnahmedatei. Zeile %2: %3</translation>
    </message>
    <message>
        <source>“%1” has an angle that is no number. Line %2: %3</source>
        <translation>„%1“ enthält einen Winkel, der keine Zahl ist. Zeile %2: %3</translation>
    </message>
    <message>
        <source>There is no file “%1”.</source>
        <translation>Die Datei „%1“ gibt es nicht.</translation>
    </message>
    <message>
        <source>“%1” is no head&apos;s file.</source>
        <translation>„%1“ ist keine Datei eines Kopfes.</translation>
    </message>
    <message>
        <source>“%1” is a list of presets and holds no shots. Choose the file that the head wrote while it was shooting.</source>
        <translation>„%1“ ist eine Liste von Voreinstellungen und enthält keine Aufnahmen. Gebraucht wird die Datei, die der Kopf beim Aufnehmen geschrieben hat.</translation>
    </message>
    <message>
        <source>“%1” holds no shots, so it is not the file of a shooting.</source>
        <translation>„%1“ enthält keine Aufnahmen, ist also keine Aufnahmedatei.</translation>
    </message>
</context>
<context>
    <name>HeadModule</name>
    <message>
        <source>Rodeon heads of Dr. Clauss: the script (.txt) that drove the head, and the pictures.</source>
        <translation>Rodeon-Köpfe von Dr.&#xa0;Clauss: das Skript (.txt), das den Kopf gesteuert hat, und die Bilder.</translation>
    </message>
    <message>
        <source>Gigapan heads, and all that shoot a regular grid: only the pictures, rows and columns are asked for.</source>
        <translation>Gigapan-Köpfe und alle, die ein regelmäßiges Raster aufnehmen: nur die Bilder, nach Zeilen und Spalten wird gefragt.</translation>
    </message>
    <message>
        <source>Merlin, Orion and other heads driven by Papywizard: its shooting file (.xml) and the pictures.</source>
        <translation>Merlin, Orion und andere Köpfe, die Papywizard steuert: dessen Aufnahmedatei (.xml) und die Bilder.</translation>
    </message>
    <message>
        <source>Roundshot VR Drive 2: its shooting file (.xml) and the pictures, made for HDR panoramas.</source>
        <translation>Roundshot VR Drive 2: seine Aufnahmedatei (.xml) und die Bilder, gedacht für HDR-Panoramen.</translation>
    </message>
    <message>
        <source>It is a plug-in of another kind.</source>
        <translation>Es ist ein Plug-in anderer Art.</translation>
    </message>
    <message>
        <source>The module with the imports cannot be loaded from %1. %2</source>
        <translation>Das Modul mit den Importen kann nicht aus %1 geladen werden. %2</translation>
    </message>
    <message>
        <source>The module %1 offers no imports.</source>
        <translation>Das Modul %1 bietet keine Importe an.</translation>
    </message>
</context>
<context>
    <name>ImportAdvice</name>
    <message numerus="yes">
        <source>The head took %Ln pictures, but %1 are chosen. Too many: %2.</source>
        <translation>
            <numerusform>Der Kopf hat %Ln Bild aufgenommen, ausgewählt sind aber %1. Zu viele: %2.</numerusform>
            <numerusform>Der Kopf hat %Ln Bilder aufgenommen, ausgewählt sind aber %1. Zu viele: %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The head took %1 pictures, but %Ln are chosen. Missing: %2.</source>
        <translation>
            <numerusform>Der Kopf hat %1 Bilder aufgenommen, ausgewählt ist aber nur %Ln. Es fehlen: %2.</numerusform>
            <numerusform>Der Kopf hat %1 Bilder aufgenommen, ausgewählt sind aber nur %Ln. Es fehlen: %2.</numerusform>
        </translation>
    </message>
    <message>
        <source>The numbers skip %1.</source>
        <translation>Die Nummern überspringen %1.</translation>
    </message>
    <message>
        <source>Drop the head&apos;s file and the pictures here, or choose them below.</source>
        <translation>Die Datei des Kopfes und die Bilder hier ablegen oder unten auswählen.</translation>
    </message>
    <message numerus="yes">
        <source>The head took %Ln pictures. Drop them here, or choose them below.</source>
        <translation>
            <numerusform>Der Kopf hat %Ln Bild aufgenommen. Das Bild hier ablegen oder unten auswählen.</numerusform>
            <numerusform>Der Kopf hat %Ln Bilder aufgenommen. Die Bilder hier ablegen oder unten auswählen.</numerusform>
        </translation>
    </message>
    <message>
        <source>Drop the pictures here, or choose them below.</source>
        <translation>Die Bilder hier ablegen oder unten auswählen.</translation>
    </message>
    <message>
        <source>Pictures that cannot be read: %1. Leave them out, or put them right and try again.</source>
        <translation>Unlesbare Bilder: %1. Weglassen, oder in Ordnung bringen und noch einmal versuchen.</translation>
    </message>
    <message>
        <source>The pictures are being read.</source>
        <translation>Die Bilder werden gelesen.</translation>
    </message>
    <message>
        <source>Pictures that cannot be read: %1. Put them right and try again, or choose others.</source>
        <translation>Unlesbare Bilder: %1. In Ordnung bringen und noch einmal versuchen, oder andere auswählen.</translation>
    </message>
    <message>
        <source>Now drop the head&apos;s file here, or choose it below.</source>
        <translation>Jetzt die Datei des Kopfes hier ablegen oder unten auswählen.</translation>
    </message>
    <message>
        <source>Check the settings below.</source>
        <translation>Unten die Einstellungen prüfen.</translation>
    </message>
    <message numerus="yes">
        <source>All %Ln pictures are read. Check the settings below, then import.</source>
        <translation>
            <numerusform>%Ln Bild ist gelesen. Unten die Einstellungen prüfen, dann importieren.</numerusform>
            <numerusform>Alle %Ln Bilder sind gelesen. Unten die Einstellungen prüfen, dann importieren.</numerusform>
        </translation>
    </message>
    <message>
        <source>a few seconds left</source>
        <translation>noch ein paar Sekunden</translation>
    </message>
    <message numerus="yes">
        <source>about %n seconds left</source>
        <translation>
            <numerusform>noch etwa %n Sekunde</numerusform>
            <numerusform>noch etwa %n Sekunden</numerusform>
        </translation>
    </message>
    <message>
        <source>about a minute left</source>
        <translation>noch etwa eine Minute</translation>
    </message>
    <message numerus="yes">
        <source>about %n minutes left</source>
        <translation>
            <numerusform>noch etwa %n Minute</numerusform>
            <numerusform>noch etwa %n Minuten</numerusform>
        </translation>
    </message>
    <message>
        <source>about %1 hours left</source>
        <translation>noch etwa %1 Stunden</translation>
    </message>
</context>
<context>
    <name>ImportBar</name>
    <message>
        <source>&amp;Stop reading</source>
        <translation>&amp;Lesen abbrechen</translation>
    </message>
    <message>
        <source>Try a&amp;gain</source>
        <translation>Noch &amp;einmal versuchen</translation>
    </message>
    <message>
        <source>&amp;Leave them out</source>
        <translation>&amp;Weglassen</translation>
    </message>
    <message>
        <source>Pictures that cannot be read</source>
        <translation>Unlesbare Bilder</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln pictures</source>
        <translation>
            <numerusform>%1 von %Ln Bild</numerusform>
            <numerusform>%1 von %Ln Bildern</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>… and %Ln more</source>
        <translation>
            <numerusform>… und noch %Ln</numerusform>
            <numerusform>… und noch %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>ImportView</name>
    <message>
        <source>&amp;Import</source>
        <translation>&amp;Importieren</translation>
    </message>
    <message>
        <source>&amp;Back to the heads</source>
        <translation>&amp;Zurück zu den Köpfen</translation>
    </message>
    <message>
        <source>Take the &amp;decimals of the angles too</source>
        <translation>Auch die &amp;Nachkommastellen der Winkel übernehmen</translation>
    </message>
    <message>
        <source>Use the order “rows &amp;upward, to and fro”</source>
        <translation>Reihenfolge „Zeilen &amp;aufwärts, hin und her“ verwenden</translation>
    </message>
    <message>
        <source>For heads that shoot every other row backwards, beginning below. The orders under “Shoot layout” take its place again.</source>
        <translation>Für Köpfe, die unten beginnen und jede zweite Zeile rückwärts aufnehmen. Die Reihenfolgen unter „Aufnahmeraster“ treten wieder an ihre Stelle.</translation>
    </message>
    <message>
        <source>“%1” is no file of this head and was left out.</source>
        <translation>„%1“ ist keine Datei dieses Kopfes und wurde weggelassen.</translation>
    </message>
    <message>
        <source>Back to the heads</source>
        <translation>Zurück zu den Köpfen</translation>
    </message>
    <message>
        <source>The pictures and settings of this import will be forgotten. Leave it?</source>
        <translation>Die Bilder und Einstellungen dieses Imports gehen verloren. Trotzdem verlassen?</translation>
    </message>
    <message>
        <source>Focal length</source>
        <translation>Brennweite</translation>
    </message>
    <message>
        <source>Not all pictures tell their focal length, and the project needs it.
Focal length of all pictures in mm, as on 36 × 24 mm film:</source>
        <translation>Nicht alle Bilder nennen ihre Brennweite, und das Projekt braucht sie.
Brennweite aller Bilder in mm, wie bei Kleinbild (36 × 24&#xa0;mm):</translation>
    </message>
    <message>
        <source>The format counts in whole degrees and drops decimals. Angles in this script that have some: %1, the first in line %2 (%3).</source>
        <translation>Das Format zählt in ganzen Grad und lässt Nachkommastellen weg. Winkel mit Nachkommastellen in diesem Skript: %1, der erste in Zeile %2 (%3).</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message numerus="yes">
        <source>“%1” tells of %Ln shots.</source>
        <translation>
            <numerusform>„%1“ enthält %Ln Aufnahme.</numerusform>
            <numerusform>„%1“ enthält %Ln Aufnahmen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln pictures come with it.</source>
        <translation>
            <numerusform>Dazu kommt %Ln Bild.</numerusform>
            <numerusform>Dazu kommen %Ln Bilder.</numerusform>
        </translation>
    </message>
    <message>
        <source>Which head wrote it?</source>
        <translation>Welcher Kopf hat die Datei geschrieben?</translation>
    </message>
    <message>
        <source>Pictures without the file of a head: %1. A Gigapan grid needs none; for another head choose it here and add its file then.</source>
        <translation>Bilder ohne die Datei eines Kopfes: %1. Ein Gigapan-Raster braucht keine; einen anderen Kopf hier auswählen und dann seine Datei hinzufügen.</translation>
    </message>
    <message>
        <source>The page of this import is gone. Start the program again.</source>
        <translation>Die Seite dieses Imports ist nicht mehr da. Bitte das Programm neu starten.</translation>
    </message>
    <message>
        <source>%1 import — %2</source>
        <translation>%1-Import – %2</translation>
    </message>
    <message>
        <source>Is this right?</source>
        <translation>Stimmt das so?</translation>
    </message>
    <message>
        <source>Check the rows, the overlap and the focal length before you go on.</source>
        <translation>Zeilen, Überlappung und Brennweite prüfen, bevor es weitergeht.</translation>
    </message>
    <message>
        <source>Check the focal length and the lens before you go on.</source>
        <translation>Brennweite und Objektiv prüfen, bevor es weitergeht.</translation>
    </message>
    <message>
        <source>&amp;Change the settings</source>
        <translation>&amp;Einstellungen ändern</translation>
    </message>
    <message>
        <source>Import &amp;all the same</source>
        <translation>&amp;Trotzdem importieren</translation>
    </message>
    <message>
        <source>Save the project</source>
        <translation>Projekt speichern</translation>
    </message>
    <message>
        <source>Hugin projects (*.pto)</source>
        <translation>Hugin-Projekte (*.pto)</translation>
    </message>
    <message>
        <source>There is nothing to import: the settings leave no location.</source>
        <translation>Es gibt nichts zu importieren: Die Einstellungen lassen keine Position übrig.</translation>
    </message>
    <message>
        <source>“%1” cannot be written: %2.</source>
        <translation>„%1“ kann nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>The project cannot be made: %1.</source>
        <translation>Das Projekt kann nicht erstellt werden: %1.</translation>
    </message>
    <message>
        <source>The project could not be written: %1.</source>
        <translation>Das Projekt konnte nicht geschrieben werden: %1.</translation>
    </message>
</context>
<context>
    <name>MapLayout</name>
    <message>
        <source>The record has neither directions nor a grid to place its locations by.</source>
        <translation>Die Aufzeichnung enthält weder Richtungen noch ein Raster, um ihre Positionen anzuordnen.</translation>
    </message>
    <message>
        <source>There are no locations.</source>
        <translation>Es gibt keine Positionen.</translation>
    </message>
    <message>
        <source>Locations without a valid direction: %1.</source>
        <translation>Positionen ohne gültige Richtung: %1.</translation>
    </message>
</context>
<context>
    <name>MapView</name>
    <message>
        <source>Map of the locations</source>
        <translation>Karte der Positionen</translation>
    </message>
</context>
<context>
    <name>Need</name>
    <message>
        <source>%1 GB</source>
        <translation>%1&#xa0;GB</translation>
    </message>
    <message>
        <source>this needs some %1 of memory, and there are %2; a narrower panorama needs less</source>
        <translation>Dafür sind etwa %1 Arbeitsspeicher nötig, frei sind %2; ein schmaleres Panorama braucht weniger</translation>
    </message>
    <message>
        <source>this needs some %1 on the disk of %2, where %3 are free; a narrower panorama needs less</source>
        <translation>Dafür sind etwa %1 auf der Platte von %2 nötig, frei sind dort %3; ein schmaleres Panorama braucht weniger</translation>
    </message>
</context>
<context>
    <name>OutputFile</name>
    <message>
        <source>is a folder</source>
        <translation>ist ein Ordner</translation>
    </message>
    <message>
        <source>there is no folder %1</source>
        <translation>den Ordner %1 gibt es nicht</translation>
    </message>
    <message>
        <source>is one of the files that the import reads</source>
        <translation>ist eine der Dateien, die der Import liest</translation>
    </message>
    <message>
        <source>is no regular file</source>
        <translation>ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>is a picture or a head&apos;s file, which is never written over</source>
        <translation>ist ein Bild oder die Datei eines Kopfes und wird nie überschrieben</translation>
    </message>
    <message>
        <source>%1: cannot be written</source>
        <translation>%1: kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>%1: cannot be written: %2</source>
        <translation>%1: kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>PictureFacts</name>
    <message>
        <source>the link leads nowhere</source>
        <translation>die Verknüpfung führt ins Leere</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>Datei nicht vorhanden</translation>
    </message>
    <message>
        <source>is a folder</source>
        <translation>ist ein Ordner</translation>
    </message>
    <message>
        <source>is no regular file</source>
        <translation>ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>cannot be opened: %1</source>
        <translation>kann nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>is empty</source>
        <translation>ist leer</translation>
    </message>
    <message>
        <source>is cut short, the picture is not whole</source>
        <translation>ist abgeschnitten, das Bild ist nicht vollständig</translation>
    </message>
    <message>
        <source>is not a picture that can be read</source>
        <translation>ist kein lesbares Bild</translation>
    </message>
</context>
<context>
    <name>Placement</name>
    <message>
        <source>the record has %1 yaws, %2 pitches and %3 rolls for %4 locations</source>
        <translation>die Aufzeichnung hat %1 Gier-, %2 Nick- und %3 Rollwinkel für %4 Positionen</translation>
    </message>
    <message>
        <source>the angles of location %1 are no numbers</source>
        <translation>die Winkel der Position %1 sind keine Zahlen</translation>
    </message>
    <message>
        <source>the record has %1 locations and no grid of %2 rows</source>
        <translation>die Aufzeichnung hat %1 Positionen und kein Raster aus %2 Zeilen</translation>
    </message>
    <message>
        <source>the record has no locations</source>
        <translation>die Aufzeichnung hat keine Positionen</translation>
    </message>
</context>
<context>
    <name>Progress</name>
    <message>
        <source>matching</source>
        <translation>Bilder vergleichen</translation>
    </message>
    <message>
        <source>matching again</source>
        <translation>Bilder erneut vergleichen</translation>
    </message>
    <message>
        <source>searching</source>
        <translation>Punkte suchen</translation>
    </message>
    <message>
        <source>adjusting</source>
        <translation>Optimieren</translation>
    </message>
    <message>
        <source>Evening out brightness</source>
        <translation>Helligkeit angleichen</translation>
    </message>
    <message>
        <source>Remapping</source>
        <translation>Bilder entzerren</translation>
    </message>
    <message>
        <source>Merging exposures</source>
        <translation>Belichtungen zusammenführen</translation>
    </message>
    <message>
        <source>Blending</source>
        <translation>Überblenden</translation>
    </message>
    <message>
        <source>Making tiles</source>
        <translation>Kacheln erstellen</translation>
    </message>
</context>
<context>
    <name>PtoProject</name>
    <message>
        <source>%1: a project cannot name a file with a quotation mark or a control character in its path</source>
        <translation>%1: ein Projekt kann keine Datei nennen, deren Pfad ein Anführungszeichen oder ein Steuerzeichen enthält</translation>
    </message>
    <message>
        <source>%1: has not been read</source>
        <translation>%1: wurde nicht gelesen</translation>
    </message>
    <message>
        <source>%1: no usable focal length is known</source>
        <translation>%1: keine brauchbare Brennweite bekannt</translation>
    </message>
    <message>
        <source>there is no picture</source>
        <translation>es gibt kein Bild</translation>
    </message>
</context>
<context>
    <name>RecordFigures</name>
    <message>
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>%1 mm</source>
        <translation>%1&#xa0;mm</translation>
    </message>
    <message>
        <source>fisheye</source>
        <translation>Fischauge</translation>
    </message>
    <message>
        <source>standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>%1, in stacks of %2</source>
        <translation>%1, in Stapeln zu %2</translation>
    </message>
    <message>
        <source>%1, in stacks of %2 to %3</source>
        <translation>%1, in Stapeln zu %2 bis %3</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Focal length</source>
        <translation>Brennweite</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>Objektiv</translation>
    </message>
    <message>
        <source>%1, from the pictures</source>
        <translation>%1, aus den Bildern</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>%1, from the head&apos;s file</source>
        <translation>%1, aus der Datei des Kopfes</translation>
    </message>
    <message>
        <source>%1, set by hand</source>
        <translation>%1, von Hand eingestellt</translation>
    </message>
    <message>
        <source>Field of view</source>
        <translation>Bildwinkel</translation>
    </message>
    <message>
        <source>%1 a picture</source>
        <translation>%1 je Bild</translation>
    </message>
    <message>
        <source>%1, together %2</source>
        <translation>%1, zusammen %2</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 pictures do not tell their focal length, so %2, the mean of all, is too short.</source>
        <translation>
            <numerusform>%Ln von %1 Bildern nennt seine Brennweite nicht, deshalb ist %2, das Mittel aller, zu kurz.</numerusform>
            <numerusform>%Ln von %1 Bildern nennen ihre Brennweite nicht, deshalb ist %2, das Mittel aller, zu kurz.</numerusform>
        </translation>
    </message>
    <message>
        <source>With an overlap of %1 % all pictures lie in one place.</source>
        <translation>Bei einer Überlappung von %1&#xa0;% liegen alle Bilder an derselben Stelle.</translation>
    </message>
    <message numerus="yes">
        <source>From the lowest to the highest of %Ln rows it would be %1, but straight down to straight up is only 180°.</source>
        <translation>
            <numerusform>Von der untersten bis zur obersten von %Ln Zeile wären es %1, aber von senkrecht unten bis senkrecht oben sind es nur 180°.</numerusform>
            <numerusform>Von der untersten bis zur obersten von %Ln Zeilen wären es %1, aber von senkrecht unten bis senkrecht oben sind es nur 180°.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln columns would take %1, which is more than a full turn.</source>
        <translation>
            <numerusform>%Ln Spalte würde %1 einnehmen, mehr als eine volle Drehung.</numerusform>
            <numerusform>%Ln Spalten würden %1 einnehmen, mehr als eine volle Drehung.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The pictures of %Ln columns see %1 together, too little to close a full turn.</source>
        <translation>
            <numerusform>Die Bilder aus %Ln Spalte zeigen zusammen %1, zu wenig für eine volle Drehung.</numerusform>
            <numerusform>Die Bilder aus %Ln Spalten zeigen zusammen %1, zu wenig für eine volle Drehung.</numerusform>
        </translation>
    </message>
    <message>
        <source>Locations</source>
        <translation>Positionen</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Links</source>
        <translation>Verknüpfungen</translation>
    </message>
    <message>
        <source>No lens has a focal length of %1.</source>
        <translation>Kein Objektiv hat eine Brennweite von %1.</translation>
    </message>
    <message>
        <source>No location is linked with another: at this focal length the pictures do not seem to overlap.</source>
        <translation>Keine Position ist mit einer anderen verknüpft: Bei dieser Brennweite scheinen sich die Bilder nicht zu überlappen.</translation>
    </message>
    <message>
        <source>Every location is linked with every other: the focal length seems to be too short for this shooting.</source>
        <translation>Jede Position ist mit jeder anderen verknüpft: Die Brennweite scheint für diese Aufnahme zu kurz zu sein.</translation>
    </message>
</context>
<context>
    <name>RecordMap</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Location %1</source>
        <translation>Position %1</translation>
    </message>
    <message>
        <source>row %1, column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>yaw %1, pitch %2</source>
        <translation>Gierwinkel %1, Nickwinkel %2</translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>und noch %Ln</numerusform>
            <numerusform>und noch %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>Locations: %1, pictures: %2, links: %3</source>
        <translation>Positionen: %1, Bilder: %2, Verknüpfungen: %3</translation>
    </message>
    <message>
        <source>near each other</source>
        <translation>nahe beieinander</translation>
    </message>
    <message>
        <source>one above the other</source>
        <translation>übereinander</translation>
    </message>
    <message>
        <source>side by side</source>
        <translation>nebeneinander</translation>
    </message>
    <message>
        <source>diagonal, down to the right</source>
        <translation>diagonal nach rechts unten</translation>
    </message>
    <message>
        <source>diagonal, down to the left</source>
        <translation>diagonal nach links unten</translation>
    </message>
    <message>
        <source>of kind %1</source>
        <translation>der Art %1</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>Or drop the head&apos;s file and the pictures anywhere on this window.</source>
        <translation>Oder die Datei des Kopfes und die Bilder irgendwo in diesem Fenster ablegen.</translation>
    </message>
    <message>
        <source>&amp;Forget these files</source>
        <translation>&amp;Diese Dateien vergessen</translation>
    </message>
    <message>
        <source>Which head took the pictures?</source>
        <translation>Welcher Kopf hat die Bilder aufgenommen?</translation>
    </message>
</context>
<context>
    <name>StitchObstacle</name>
    <message>
        <source>%1: Hugin&apos;s tools cannot read such a file; develop or convert it to .tif or .jpg and import that</source>
        <translation>%1: Hugins Werkzeuge können eine solche Datei nicht lesen; als .tif oder .jpg entwickeln oder umwandeln und dann importieren</translation>
    </message>
    <message numerus="yes">
        <source>%1: Hugin&apos;s tools cannot read such a file; develop or convert it and %Ln more to .tif or .jpg and import that</source>
        <translation>
            <numerusform>%1: Hugins Werkzeuge können eine solche Datei nicht lesen; diese und %Ln weitere als .tif oder .jpg entwickeln oder umwandeln und dann importieren</numerusform>
            <numerusform>%1: Hugins Werkzeuge können eine solche Datei nicht lesen; diese und %Ln weitere als .tif oder .jpg entwickeln oder umwandeln und dann importieren</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: radiance needs the name of an .exr</source>
        <translation>%1: für Radianz muss der Name auf .exr enden</translation>
    </message>
    <message>
        <source>%1: only radiance is written as .exr; .jpg and .tif are for the rest</source>
        <translation>%1: nur Radianz wird als .exr geschrieben, alles andere als .jpg oder .tif</translation>
    </message>
    <message>
        <source>%1: a panorama is a .jpg, a .tif, or for radiance an .exr</source>
        <translation>%1: ein Panorama ist ein .jpg, ein .tif oder, für Radianz, ein .exr</translation>
    </message>
    <message>
        <source>%1: would have %2 pixels a side, and a JPEG has at most %3; a .tif or a narrower panorama would do</source>
        <translation>%1: hätte eine Seite von %2 Pixeln, ein JPEG höchstens eine von %3; ein .tif ginge, oder ein schmaleres Panorama</translation>
    </message>
</context>
<context>
    <name>Stitching</name>
    <message>
        <source>%1: cannot be read</source>
        <translation>%1: kann nicht gelesen werden</translation>
    </message>
</context>
<context>
    <name>SummaryPage</name>
    <message>
        <source>Show where the pictures e&amp;nd</source>
        <translation>Bild&amp;grenzen zeigen</translation>
    </message>
    <message>
        <source>Show where they are &amp;joined</source>
        <translation>&amp;Nähte zeigen</translation>
    </message>
    <message>
        <source>&amp;Open in Hugin</source>
        <translation>&amp;In Hugin öffnen</translation>
    </message>
    <message>
        <source>&amp;Show the folder</source>
        <translation>&amp;Ordner zeigen</translation>
    </message>
    <message>
        <source>&amp;Import another</source>
        <translation>&amp;Weiterer Import</translation>
    </message>
    <message>
        <source>Map</source>
        <translation>Karte</translation>
    </message>
    <message>
        <source>“%1” is ready</source>
        <translation>„%1“ ist fertig</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1:</translation>
    </message>
    <message>
        <source>Open in Hugin</source>
        <translation>In Hugin öffnen</translation>
    </message>
    <message>
        <source>Hugin was not found on this computer. Install it (on Debian: the package “hugin”), then open the project with it:
%1</source>
        <translation>Hugin wurde auf diesem Rechner nicht gefunden. Bitte installieren (bei Debian: das Paket „hugin“), dann das Projekt damit öffnen:
%1</translation>
    </message>
</context>
<context>
    <name>Tags</name>
    <message>
        <source>%1: its tags cannot be written: %2</source>
        <translation>%1: die Metadaten können nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>ToolRunner</name>
    <message>
        <source>%1 could not be started</source>
        <translation>%1 konnte nicht gestartet werden</translation>
    </message>
    <message>
        <source>%1 was ended by signal %2</source>
        <translation>%1 wurde durch Signal %2 beendet</translation>
    </message>
    <message>
        <source>%1 failed with exit code %2</source>
        <translation>%1 ist mit Fehlercode %2 gescheitert</translation>
    </message>
    <message>
        <source>%1 ended with exit code 0, but did not write %2</source>
        <translation>%1 endete ohne Fehlercode, hat aber %2 nicht geschrieben</translation>
    </message>
    <message>
        <source>%1 hangs</source>
        <translation>%1 hängt</translation>
    </message>
    <message>
        <source>%1 is missing; Debian has it in: apt-get install %2</source>
        <translation>%1 fehlt; bei Debian: apt-get install %2</translation>
    </message>
    <message>
        <source>%1 are missing; Debian has them in: apt-get install %2</source>
        <translation>%1 fehlen; bei Debian: apt-get install %2</translation>
    </message>
    <message>
        <source> and </source>
        <translation> und </translation>
    </message>
    <message>
        <source>%1; its log is %2</source>
        <translation>%1; das Protokoll ist %2</translation>
    </message>
</context>
<context>
    <name>WorkFolder</name>
    <message>
        <source>%1: is needed as a folder for the work, but is a file</source>
        <translation>%1: wird als Arbeitsordner gebraucht, ist aber eine Datei</translation>
    </message>
    <message>
        <source>%1: the folder for the work cannot be made</source>
        <translation>%1: der Arbeitsordner kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>%1: another run is at work there</source>
        <translation>%1: dort wird gerade schon gearbeitet</translation>
    </message>
    <message>
        <source>%1: cannot be written to</source>
        <translation>%1: dorthin kann nicht geschrieben werden</translation>
    </message>
</context>
</TS>
