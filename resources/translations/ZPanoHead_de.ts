<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>Library</name>
    <message>
        <source>Comment</source>
        <translation>Kommentar</translation>
    </message>
</context>
<context>
    <name>UIWPClauss</name>
    <message>
        <source>N/A</source>
        <translation>k. A.</translation>
    </message>
    <message>
        <source>All Files (*.*)</source>
        <translation>Alle Dateien (*.*)</translation>
    </message>
    <message>
        <source>Select images</source>
        <translation>Bilder auswählen</translation>
    </message>
    <message>
        <source>Select the preset file and/or images</source>
        <translation>Aufnahmedatei und/oder Bilder auswählen</translation>
    </message>
    <message>
        <source>Clauss panohead import</source>
        <translation>Import vom Clauss-Panoramakopf</translation>
    </message>
    <message>
        <source> provides special equipment for panoramic photography and VR applications.</source>
        <translation> bietet besondere Ausrüstung für Panoramafotografie und VR-Anwendungen.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Error parse file:%1</source>
        <translation>Fehler beim Lesen der Datei: %1</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>A focal length of %1 mm makes about %2 million links between the pictures, more than %3 million. Check the focal length.</source>
        <translation>Eine Brennweite von %1 mm ergibt etwa %2 Millionen Verknüpfungen zwischen den Bildern, mehr als %3 Millionen. Prüfen Sie die Brennweite.</translation>
    </message>
</context>
<context>
    <name>UIWPClaussClass</name>
    <message>
        <source>Clauss Rodeon import plugin</source>
        <translation>Import-Plug-in für Clauss Rodeon</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Script file:</source>
        <translation>Skriptdatei:</translation>
    </message>
    <message>
        <source>Script file</source>
        <translation>Skriptdatei</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Choose the script file and images</source>
        <translation>Skriptdatei und Bilder auswählen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Number of shoot:</source>
        <translation>Anzahl der Aufnahmen:</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>k. A.</translation>
    </message>
    <message>
        <source>Theta:</source>
        <translation>Theta:</translation>
    </message>
    <message>
        <source>Phi:</source>
        <translation>Phi:</translation>
    </message>
    <message>
        <source>Inverse Y coordinates</source>
        <translation>Y-Koordinaten umkehren</translation>
    </message>
    <message>
        <source>Images:</source>
        <translation>Bilder:</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Choose the images</source>
        <translation>Bilder auswählen</translation>
    </message>
    <message>
        <source>Number of image:</source>
        <translation>Anzahl der Bilder:</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Auto detection</source>
        <translation>Automatische Erkennung</translation>
    </message>
    <message>
        <source>Clean wrong link</source>
        <translation>Falsche Verknüpfungen entfernen</translation>
    </message>
    <message>
        <source>Skip optimization</source>
        <translation>Optimierung überspringen</translation>
    </message>
    <message>
        <source>Guided optimization</source>
        <translation>Geführte Optimierung</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
</context>
<context>
    <name>UIWPGigapan</name>
    <message>
        <source>All Files (*.*)</source>
        <translation>Alle Dateien (*.*)</translation>
    </message>
    <message>
        <source>Select images</source>
        <translation>Bilder auswählen</translation>
    </message>
    <message>
        <source>Gigapan panorama import</source>
        <translation>Import eines Gigapan-Panoramas</translation>
    </message>
    <message>
        <source> allows users to upload, share, and explore brilliant gigapixel+ panoramas from around the globe.</source>
        <translation> lässt seine Benutzer großartige Gigapixel-Panoramen aus aller Welt hochladen, teilen und erkunden.</translation>
    </message>
    <message>
        <source>images in </source>
        <translation>Bilder in </translation>
    </message>
    <message>
        <source>Pictures ignored: %1</source>
        <translation>Übergangene Bilder: %1</translation>
    </message>
    <message>
        <source>Pictures left over: %1</source>
        <translation>Übrige Bilder: %1</translation>
    </message>
</context>
<context>
    <name>UIWPGigapanClass</name>
    <message>
        <source>Gigapan import plugin</source>
        <translation>Import-Plug-in für Gigapan</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Images :</source>
        <translation>Bilder:</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Choose the images</source>
        <translation>Bilder auswählen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source># Images in</source>
        <translation># Bilder in</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>rows and</source>
        <translation>Zeilen und</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
    <message>
        <source>columns.</source>
        <translation>Spalten.</translation>
    </message>
    <message>
        <source>Ignore N files </source>
        <translation>N Dateien übergehen </translation>
    </message>
    <message>
        <source>Ignore N files</source>
        <translation>N Dateien übergehen</translation>
    </message>
    <message>
        <source>Nb image per location ( bracketing )</source>
        <translation>Bilder je Standort (Belichtungsreihe)</translation>
    </message>
    <message>
        <source>Images per location</source>
        <translation>Bilder je Standort</translation>
    </message>
    <message>
        <source>Shoot layout</source>
        <translation>Aufnahmeraster</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>Raster</translation>
    </message>
    <message>
        <source>Columns (default)</source>
        <translation>Spalten (Vorgabe)</translation>
    </message>
    <message>
        <source>Rows: downward</source>
        <translation>Zeilen: abwärts</translation>
    </message>
    <message>
        <source>Rows: upward</source>
        <translation>Zeilen: aufwärts</translation>
    </message>
    <message>
        <source>Columns: to left</source>
        <translation>Spalten: nach links</translation>
    </message>
    <message>
        <source>Shoot setup</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Force 360° panorama</source>
        <translation>360°-Panorama erzwingen</translation>
    </message>
    <message>
        <source>Overlapping</source>
        <translation>Überlappung</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Stapel</translation>
    </message>
    <message>
        <source>Detect links in:</source>
        <translation>Verknüpfungen suchen in:</translation>
    </message>
    <message>
        <source>The reference level</source>
        <translation>der Referenzebene</translation>
    </message>
    <message>
        <source>All stack levels</source>
        <translation>allen Ebenen der Stapel</translation>
    </message>
    <message>
        <source>For a stack:</source>
        <translation>Innerhalb eines Stapels:</translation>
    </message>
    <message>
        <source>Use hard links</source>
        <translation>Feste Verknüpfung</translation>
    </message>
    <message>
        <source>Detect control points</source>
        <translation>Kontrollpunkte suchen</translation>
    </message>
    <message>
        <source>Detection options</source>
        <translation>Erkennung</translation>
    </message>
    <message>
        <source>Auto detection</source>
        <translation>Automatische Erkennung</translation>
    </message>
    <message>
        <source>Clean wrong link</source>
        <translation>Falsche Verknüpfungen entfernen</translation>
    </message>
    <message>
        <source>Skip optimization</source>
        <translation>Optimierung überspringen</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
</context>
<context>
    <name>UIWPMerlin</name>
    <message>
        <source>N/A</source>
        <translation>k. A.</translation>
    </message>
    <message>
        <source>All Files (*.*)</source>
        <translation>Alle Dateien (*.*)</translation>
    </message>
    <message>
        <source>XML files (*.xml)</source>
        <translation>XML-Dateien (*.xml)</translation>
    </message>
    <message>
        <source>Select images</source>
        <translation>Bilder auswählen</translation>
    </message>
    <message>
        <source>Select the preset file and/or images</source>
        <translation>Aufnahmedatei und/oder Bilder auswählen</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Papywizard XML has bracketing and the number of images isn&apos;t a multiple of this number of brackets.</source>
        <translation>Die Papywizard-XML-Datei enthält Belichtungsreihen, und die Anzahl der Bilder ist kein Vielfaches davon.</translation>
    </message>
    <message>
        <source>Bracketing used in XML, should be multiple of that number</source>
        <translation>Die XML-Datei enthält Belichtungsreihen: Die Bilderzahl muss ein Vielfaches davon sein</translation>
    </message>
    <message>
        <source>Not the same as in XML fil</source>
        <translation>Nicht dieselbe Anzahl wie in der XML-Datei</translation>
    </message>
    <message>
        <source>Focal Length difference between EXIF and XML</source>
        <translation>Brennweite in EXIF und XML verschieden</translation>
    </message>
    <message>
        <source>Lens type difference between EXIF and XML</source>
        <translation>Objektivtyp in EXIF und XML verschieden</translation>
    </message>
    <message>
        <source>Papywizard import</source>
        <translation>Papywizard-Import</translation>
    </message>
    <message>
        <source> is a free project to drive Merlin/Orion panorama heads. The XML file format is open and used by a wide range of motorized panorama heads.</source>
        <translation> ist ein freies Projekt zum Steuern der Panoramaköpfe Merlin/Orion. Sein XML-Dateiformat ist offen und wird von vielen motorisierten Panoramaköpfen verwendet.</translation>
    </message>
    <message>
        <source>A focal length of %1 mm makes about %2 million links between the pictures, more than %3 million. Check the focal length.</source>
        <translation>Eine Brennweite von %1 mm ergibt etwa %2 Millionen Verknüpfungen zwischen den Bildern, mehr als %3 Millionen. Prüfen Sie die Brennweite.</translation>
    </message>
</context>
<context>
    <name>UIWPMerlinClass</name>
    <message>
        <source>Papywizard panohead control software</source>
        <translation>Steuerprogramm Papywizard für Panoramaköpfe</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>XML:</source>
        <translation>XML:</translation>
    </message>
    <message>
        <source>XML</source>
        <translation>XML</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Choose the XML file and images</source>
        <translation>XML-Datei und Bilder auswählen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Number of images:</source>
        <translation>Anzahl der Bilder:</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>k. A.</translation>
    </message>
    <message>
        <source>Yaw:</source>
        <translation>Gierwinkel:</translation>
    </message>
    <message>
        <source>Pitch:</source>
        <translation>Nickwinkel:</translation>
    </message>
    <message>
        <source>Bracketing:</source>
        <translation>Belichtungsreihe:</translation>
    </message>
    <message>
        <source>XML focal:</source>
        <translation>Brennweite (XML):</translation>
    </message>
    <message>
        <source>Images:</source>
        <translation>Bilder:</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Choose the images</source>
        <translation>Bilder auswählen</translation>
    </message>
    <message>
        <source>Image focal:</source>
        <translation>Brennweite (Bilder):</translation>
    </message>
    <message>
        <source>Shoot setup</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Inverse Y coordinates</source>
        <translation>Y-Koordinaten umkehren</translation>
    </message>
    <message>
        <source>Rotate 90 degrees to the left</source>
        <translation>Um 90 Grad nach links drehen</translation>
    </message>
    <message>
        <source>Rotate 90 degrees to the right</source>
        <translation>Um 90 Grad nach rechts drehen</translation>
    </message>
    <message>
        <source>Focal length:</source>
        <translation>Brennweite:</translation>
    </message>
    <message>
        <source>Focal length</source>
        <translation>Brennweite</translation>
    </message>
    <message>
        <source>Use XML information</source>
        <translation>Angaben aus der XML-Datei verwenden</translation>
    </message>
    <message>
        <source>Lens Type:</source>
        <translation>Objektivtyp:</translation>
    </message>
    <message>
        <source>Lens Type</source>
        <translation>Objektivtyp</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Fisheye</source>
        <translation>Fischauge</translation>
    </message>
    <message>
        <source>Use image information</source>
        <translation>Angaben aus den Bildern verwenden</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Stapel</translation>
    </message>
    <message>
        <source>Detect links in:</source>
        <translation>Verknüpfungen suchen in:</translation>
    </message>
    <message>
        <source>The reference level</source>
        <translation>der Referenzebene</translation>
    </message>
    <message>
        <source>All stack levels</source>
        <translation>allen Ebenen der Stapel</translation>
    </message>
    <message>
        <source>For a stack:</source>
        <translation>Innerhalb eines Stapels:</translation>
    </message>
    <message>
        <source>Use hard links</source>
        <translation>Feste Verknüpfung</translation>
    </message>
    <message>
        <source>Detect control points</source>
        <translation>Kontrollpunkte suchen</translation>
    </message>
    <message>
        <source>Detection options</source>
        <translation>Erkennung</translation>
    </message>
    <message>
        <source>Auto detection</source>
        <translation>Automatische Erkennung</translation>
    </message>
    <message>
        <source>Clean wrong link</source>
        <translation>Falsche Verknüpfungen entfernen</translation>
    </message>
    <message>
        <source>Skip optimization</source>
        <translation>Optimierung überspringen</translation>
    </message>
    <message>
        <source>Use recorded location</source>
        <translation>Aufgezeichnete Position verwenden</translation>
    </message>
    <message>
        <source>Header details</source>
        <translation>Kopfdaten</translation>
    </message>
    <message>
        <source>Title:</source>
        <translation>Titel:</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>GPS:</source>
        <translation>GPS:</translation>
    </message>
    <message>
        <source>GPS</source>
        <translation>GPS</translation>
    </message>
    <message>
        <source>Comment:</source>
        <translation>Kommentar:</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
</context>
<context>
    <name>UIWPVRDrive2</name>
    <message>
        <source>N/A</source>
        <translation>k. A.</translation>
    </message>
    <message>
        <source>All Files (*.*)</source>
        <translation>Alle Dateien (*.*)</translation>
    </message>
    <message>
        <source>XML files (*.xml)</source>
        <translation>XML-Dateien (*.xml)</translation>
    </message>
    <message>
        <source>Select images</source>
        <translation>Bilder auswählen</translation>
    </message>
    <message>
        <source>Select the preset file and/or images</source>
        <translation>Aufnahmedatei und/oder Bilder auswählen</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Papywizard XML has bracketing and the number of images isn&apos;t a multiple of this number of brackets.</source>
        <translation>Die Papywizard-XML-Datei enthält Belichtungsreihen, und die Anzahl der Bilder ist kein Vielfaches davon.</translation>
    </message>
    <message>
        <source>Bracketing used in XML, should be multiple of that number</source>
        <translation>Die XML-Datei enthält Belichtungsreihen: Die Bilderzahl muss ein Vielfaches davon sein</translation>
    </message>
    <message>
        <source>Not the same as in XML fil</source>
        <translation>Nicht dieselbe Anzahl wie in der XML-Datei</translation>
    </message>
    <message>
        <source>Focal length difference between EXIF and XML</source>
        <translation>Brennweite in EXIF und XML verschieden</translation>
    </message>
    <message>
        <source>Lens type difference between EXIF and XML</source>
        <translation>Objektivtyp in EXIF und XML verschieden</translation>
    </message>
    <message>
        <source>VR Drive 2</source>
        <translation>VR Drive 2</translation>
    </message>
    <message>
        <source> plug-in enables an automated HDR workflow with all parameters set for true light rendering and easy use of %1 software.</source>
        <translation> ermöglicht einen automatischen HDR-Ablauf, bei dem alle Parameter für die Wiedergabe des wahren Lichts und den einfachen Gebrauch von %1 eingestellt sind.</translation>
    </message>
    <message>
        <source>A focal length of %1 mm makes about %2 million links between the pictures, more than %3 million. Check the focal length.</source>
        <translation>Eine Brennweite von %1 mm ergibt etwa %2 Millionen Verknüpfungen zwischen den Bildern, mehr als %3 Millionen. Prüfen Sie die Brennweite.</translation>
    </message>
</context>
<context>
    <name>UIWPVRDrive2Class</name>
    <message>
        <source>VR Drive II import plugin</source>
        <translation>Import-Plug-in für VR Drive II</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Images:</source>
        <translation>Bilder:</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Choose the images</source>
        <translation>Bilder auswählen</translation>
    </message>
    <message>
        <source>Number of images:</source>
        <translation>Anzahl der Bilder:</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>k. A.</translation>
    </message>
    <message>
        <source>Image focal:</source>
        <translation>Brennweite (Bilder):</translation>
    </message>
    <message>
        <source>XML:</source>
        <translation>XML:</translation>
    </message>
    <message>
        <source>XML</source>
        <translation>XML</translation>
    </message>
    <message>
        <source>Choose the XML file and images</source>
        <translation>XML-Datei und Bilder auswählen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Yaw:</source>
        <translation>Gierwinkel:</translation>
    </message>
    <message>
        <source>Pitch:</source>
        <translation>Nickwinkel:</translation>
    </message>
    <message>
        <source>Bracketing:</source>
        <translation>Belichtungsreihe:</translation>
    </message>
    <message>
        <source>XML focal:</source>
        <translation>Brennweite (XML):</translation>
    </message>
    <message>
        <source>Output:</source>
        <translation>Ausgabe:</translation>
    </message>
    <message>
        <source>8-bits / 16-bits tonemapped</source>
        <translation>8 Bit / 16 Bit, tonwertkomprimiert</translation>
    </message>
    <message>
        <source>32-bits HDR radiance</source>
        <translation>32 Bit, HDR-Radianz</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>TextLabel</translation>
    </message>
    <message>
        <source>Shoot setup</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Inverse Y coordinates</source>
        <translation>Y-Koordinaten umkehren</translation>
    </message>
    <message>
        <source>Rotate 90 degrees to the left</source>
        <translation>Um 90 Grad nach links drehen</translation>
    </message>
    <message>
        <source>Rotate 90 degrees to the right</source>
        <translation>Um 90 Grad nach rechts drehen</translation>
    </message>
    <message>
        <source>Focal length:</source>
        <translation>Brennweite:</translation>
    </message>
    <message>
        <source>Focal length</source>
        <translation>Brennweite</translation>
    </message>
    <message>
        <source>Use XML information</source>
        <translation>Angaben aus der XML-Datei verwenden</translation>
    </message>
    <message>
        <source>Lens Type:</source>
        <translation>Objektivtyp:</translation>
    </message>
    <message>
        <source>Lens Type</source>
        <translation>Objektivtyp</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Fisheye</source>
        <translation>Fischauge</translation>
    </message>
    <message>
        <source>Use image information</source>
        <translation>Angaben aus den Bildern verwenden</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Stapel</translation>
    </message>
    <message>
        <source>Detect links in:</source>
        <translation>Verknüpfungen suchen in:</translation>
    </message>
    <message>
        <source>The reference level</source>
        <translation>der Referenzebene</translation>
    </message>
    <message>
        <source>All stack levels</source>
        <translation>allen Ebenen der Stapel</translation>
    </message>
    <message>
        <source>For a stack:</source>
        <translation>Innerhalb eines Stapels:</translation>
    </message>
    <message>
        <source>Use hard links</source>
        <translation>Feste Verknüpfung</translation>
    </message>
    <message>
        <source>Detect control points</source>
        <translation>Kontrollpunkte suchen</translation>
    </message>
    <message>
        <source>Detection options</source>
        <translation>Erkennung</translation>
    </message>
    <message>
        <source>Auto detection</source>
        <translation>Automatische Erkennung</translation>
    </message>
    <message>
        <source>Clean wrong link</source>
        <translation>Falsche Verknüpfungen entfernen</translation>
    </message>
    <message>
        <source>Skip optimization</source>
        <translation>Optimierung überspringen</translation>
    </message>
    <message>
        <source>Use recorded location</source>
        <translation>Aufgezeichnete Position verwenden</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
</context>
<context>
    <name>ZClaussImport</name>
    <message>
        <source>Clauss Rodeon import plugin</source>
        <translation>Import-Plug-in für Clauss Rodeon</translation>
    </message>
</context>
<context>
    <name>ZGigapanImport</name>
    <message>
        <source>Gigapan import plugin</source>
        <translation>Import-Plug-in für Gigapan</translation>
    </message>
</context>
<context>
    <name>ZMerlinImport</name>
    <message>
        <source>Papywizard XML import plugin</source>
        <translation>Import-Plug-in für Papywizard-XML</translation>
    </message>
</context>
<context>
    <name>ZVRDrive2Import</name>
    <message>
        <source>VRDrive2 XML import plugin</source>
        <translation>Import-Plug-in für VRDrive2-XML</translation>
    </message>
</context>
</TS>
