<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>AlignReport</name>
    <message numerus="yes">
        <source> and %Ln more</source>
        <translation>
            <numerusform> et %Ln autre</numerusform>
            <numerusform> et %Ln autres</numerusform>
        </translation>
    </message>
    <message>
        <source>1 picture</source>
        <translation>1 image</translation>
    </message>
    <message numerus="yes">
        <source>%Ln pictures</source>
        <translation>
            <numerusform>%Ln image</numerusform>
            <numerusform>%Ln images</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1, %Ln joined</source>
        <translation>
            <numerusform>%1, dont %Ln raccordée</numerusform>
            <numerusform>%1, dont %Ln raccordées</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %Ln held by the head: %1</source>
        <translation>
            <numerusform>, %Ln placée d’après la tête&#xa0;: %1</numerusform>
            <numerusform>, %Ln placées d’après la tête&#xa0;: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>points miss each other by %1 pixels, at worst %2 (%3, %4)</source>
        <translation>Écart entre les points de contrôle&#xa0;: %1 pixels, au pire %2 (%3, %4)</translation>
    </message>
    <message>
        <source>focal length %1 mm (%2 stated), distortion %3</source>
        <translation>Longueur focale %1&#xa0;mm (indiquée&#xa0;: %2), distorsion %3</translation>
    </message>
    <message>
        <source>pictures were %1 degrees off the grid, at worst %2</source>
        <translation>Les images s’écartaient de la grille de %1 degrés, au pire de %2</translation>
    </message>
    <message>
        <source>the head was %1 degrees off, at worst %2</source>
        <translation>La tête s’est écartée de %1 degrés, au pire de %2</translation>
    </message>
    <message>
        <source> and </source>
        <translation> et </translation>
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
        <translation>%1 en ligne et %2 en colonne</translation>
    </message>
    <message>
        <source>%1 in a row</source>
        <translation>%1 en ligne</translation>
    </message>
    <message>
        <source>%1 in a column</source>
        <translation>%1 en colonne</translation>
    </message>
    <message>
        <source>no points were looked for, as asked: positions are the recorded ones</source>
        <translation>Aucun point de contrôle n’a été cherché, comme demandé&#xa0;: les positions sont celles enregistrées</translation>
    </message>
    <message numerus="yes">
        <source>in %Ln parts that no points join: only the head tells how they lie</source>
        <translation>
            <numerusform>En %Ln partie qu’aucun point ne relie&#xa0;: seule la tête dit comment elle est placée</numerusform>
            <numerusform>En %Ln parties qu’aucun point ne relie&#xa0;: seule la tête dit comment elles sont placées</numerusform>
        </translation>
    </message>
    <message>
        <source>positions are the recorded ones, as asked</source>
        <translation>Les positions sont celles enregistrées, comme demandé</translation>
    </message>
    <message>
        <source>neighbours overlap by %1 (%2 stated)</source>
        <translation>Les voisines se recouvrent de %1 (indiqué&#xa0;: %2)</translation>
    </message>
    <message>
        <source>the pictures do not fit the grid: wrong rows, order, overlap, focal length or lens type?</source>
        <translation>Les images ne correspondent pas à la grille&#xa0;: lignes, ordre, recouvrement, longueur focale ou type d’objectif erroné&#xa0;?</translation>
    </message>
    <message>
        <source>the pictures do not fit what was recorded: a wrong focal length or lens type, or the file of another shooting?</source>
        <translation>Les images ne correspondent pas à l’enregistrement&#xa0;: longueur focale ou type d’objectif erroné, ou fichier d’une autre prise de vue&#xa0;?</translation>
    </message>
    <message>
        <source>%1 (%2 degrees)</source>
        <translation>%1 (%2 degrés)</translation>
    </message>
    <message>
        <source>further off than they should be: %1</source>
        <translation>Plus décalées qu’elles ne devraient&#xa0;: %1</translation>
    </message>
    <message>
        <source>match none of their neighbours, perhaps the wrong pictures: %1</source>
        <translation>Ne s’accordent avec aucune voisine, peut-être de mauvaises images&#xa0;: %1</translation>
    </message>
    <message>
        <source>should overlap and do not match: %1</source>
        <translation>Devraient se recouvrir et ne concordent pas&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>DroppedFiles</name>
    <message>
        <source>The folder “%1” holds no pictures and no file of a head.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» ne contient ni images ni fichier d’une tête.</translation>
    </message>
    <message>
        <source>“%1” is neither a picture nor the file of a head.</source>
        <translation>«&#xa0;%1&#xa0;» n’est ni une image ni le fichier d’une tête.</translation>
    </message>
</context>
<context>
    <name>FinishingPane</name>
    <message>
        <source>&amp;Align</source>
        <translation>&amp;Aligner</translation>
    </message>
    <message>
        <source>&amp;Preview</source>
        <translation>A&amp;perçu</translation>
    </message>
    <message>
        <source>&amp;Make panorama…</source>
        <translation>&amp;Créer le panorama…</translation>
    </message>
    <message>
        <source>Finds the same things in neighbouring pictures and puts the pictures where they fit together, into the same project.</source>
        <translation>Trouve les mêmes détails dans les images voisines et place les images là où elles concordent, dans le même projet.</translation>
    </message>
    <message>
        <source>Aligns the pictures, unless that is done, and shows quickly and small what the panorama will be.</source>
        <translation>Aligne les images, si ce n’est pas déjà fait, et montre vite et en petit ce que sera le panorama.</translation>
    </message>
    <message>
        <source>Aligns the pictures, unless that is done, and blends them into one.</source>
        <translation>Aligne les images, si ce n’est pas déjà fait, et les assemble en une seule.</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>A&amp;nnuler</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
    <message>
        <source>%1: %2 × %3 pixels</source>
        <translation>%1&#xa0;: %2 × %3 pixels</translation>
    </message>
    <message>
        <source>Getting ready</source>
        <translation>Préparation</translation>
    </message>
    <message>
        <source>%1: %2 %</source>
        <translation>%1&#xa0;: %2&#xa0;%</translation>
    </message>
    <message>
        <source>Cancelled. What was found so far is kept, and the next try goes on from it.</source>
        <translation>Annulé. Ce qui a été trouvé jusqu’ici est conservé, et le prochain essai repartira de là.</translation>
    </message>
    <message>
        <source>Align</source>
        <translation>Aligner</translation>
    </message>
    <message>
        <source>“%1” has been changed since it was written. Aligning begins from the import again and writes over it. Go on?</source>
        <translation>«&#xa0;%1&#xa0;» a été modifié depuis son écriture. L’alignement repart de l’import et l’écrase. Continuer&#xa0;?</translation>
    </message>
    <message>
        <source>JPEG pictures (*.jpg)</source>
        <translation>Images JPEG (*.jpg)</translation>
    </message>
    <message>
        <source>TIFF pictures, 16 bits (*.tif)</source>
        <translation>Images TIFF, 16 bits (*.tif)</translation>
    </message>
    <message>
        <source>OpenEXR pictures, radiance (*.exr)</source>
        <translation>Images OpenEXR, radiance (*.exr)</translation>
    </message>
    <message>
        <source>Save the panorama</source>
        <translation>Enregistrer le panorama</translation>
    </message>
    <message>
        <source>“%1” cannot be written: %2.</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être écrit&#xa0;: %2.</translation>
    </message>
</context>
<context>
    <name>HeadFile</name>
    <message>
        <source>“%1” cannot be opened: %2.</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être ouvert&#xa0;: %2.</translation>
    </message>
    <message>
        <source>“%1” is damaged or no shooting file. Line %2: %3</source>
        <translation>«&#xa0;%1&#xa0;» est endommagé ou n’est pas un fichier de prise de vue. Ligne %2&#xa0;: %3</translation>
    </message>
    <message>
        <source>“%1” has an angle that is no number. Line %2: %3</source>
        <translation>«&#xa0;%1&#xa0;» contient un angle qui n’est pas un nombre. Ligne %2&#xa0;: %3</translation>
    </message>
    <message>
        <source>There is no file “%1”.</source>
        <translation>Le fichier «&#xa0;%1&#xa0;» n’existe pas.</translation>
    </message>
    <message>
        <source>“%1” is no head&apos;s file.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas le fichier d’une tête.</translation>
    </message>
    <message>
        <source>“%1” is a list of presets and holds no shots. Choose the file that the head wrote while it was shooting.</source>
        <translation>«&#xa0;%1&#xa0;» est une liste de préréglages et ne contient aucune prise de vue. Choisissez le fichier que la tête a écrit pendant qu’elle photographiait.</translation>
    </message>
    <message>
        <source>“%1” holds no shots, so it is not the file of a shooting.</source>
        <translation>«&#xa0;%1&#xa0;» ne contient aucune prise de vue&#xa0;: ce n’est pas un fichier de prise de vue.</translation>
    </message>
</context>
<context>
    <name>HeadModule</name>
    <message>
        <source>Rodeon heads of Dr. Clauss: the script (.txt) that drove the head, and the pictures.</source>
        <translation>Têtes Rodeon de Dr.&#xa0;Clauss&#xa0;: le script (.txt) qui a piloté la tête, et les images.</translation>
    </message>
    <message>
        <source>Gigapan heads, and all that shoot a regular grid: only the pictures, rows and columns are asked for.</source>
        <translation>Têtes Gigapan, et toutes celles qui suivent une grille régulière&#xa0;: les images suffisent, lignes et colonnes sont demandées.</translation>
    </message>
    <message>
        <source>Merlin, Orion and other heads driven by Papywizard: its shooting file (.xml) and the pictures.</source>
        <translation>Merlin, Orion et autres têtes pilotées par Papywizard&#xa0;: son fichier de prise de vue (.xml) et les images.</translation>
    </message>
    <message>
        <source>Roundshot VR Drive 2: its shooting file (.xml) and the pictures, made for HDR panoramas.</source>
        <translation>Roundshot VR Drive 2&#xa0;: son fichier de prise de vue (.xml) et les images, pour des panoramas HDR.</translation>
    </message>
    <message>
        <source>It is a plug-in of another kind.</source>
        <translation>C’est un module d’un autre genre.</translation>
    </message>
    <message>
        <source>The module with the imports cannot be loaded from %1. %2</source>
        <translation>Le module des imports ne peut pas être chargé depuis %1. %2</translation>
    </message>
    <message>
        <source>The module %1 offers no imports.</source>
        <translation>Le module %1 ne propose aucun import.</translation>
    </message>
</context>
<context>
    <name>ImportAdvice</name>
    <message numerus="yes">
        <source>The head took %Ln pictures, but %1 are chosen. Too many: %2.</source>
        <translation>
            <numerusform>La tête a pris %Ln image, mais %1 sont choisies. En trop&#xa0;: %2.</numerusform>
            <numerusform>La tête a pris %Ln images, mais %1 sont choisies. En trop&#xa0;: %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The head took %1 pictures, but %Ln are chosen. Missing: %2.</source>
        <translation>
            <numerusform>La tête a pris %1 images, mais %Ln seule est choisie. Il en manque&#xa0;: %2.</numerusform>
            <numerusform>La tête a pris %1 images, mais %Ln seulement sont choisies. Il en manque&#xa0;: %2.</numerusform>
        </translation>
    </message>
    <message>
        <source>The numbers skip %1.</source>
        <translation>Les numéros sautent %1.</translation>
    </message>
    <message>
        <source>Drop the head&apos;s file and the pictures here, or choose them below.</source>
        <translation>Déposez ici le fichier de la tête et les images, ou choisissez-les ci-dessous.</translation>
    </message>
    <message numerus="yes">
        <source>The head took %Ln pictures. Drop them here, or choose them below.</source>
        <translation>
            <numerusform>La tête a pris %Ln image. Déposez-la ici, ou choisissez-la ci-dessous.</numerusform>
            <numerusform>La tête a pris %Ln images. Déposez-les ici, ou choisissez-les ci-dessous.</numerusform>
        </translation>
    </message>
    <message>
        <source>Drop the pictures here, or choose them below.</source>
        <translation>Déposez ici les images, ou choisissez-les ci-dessous.</translation>
    </message>
    <message>
        <source>Pictures that cannot be read: %1. Leave them out, or put them right and try again.</source>
        <translation>Images illisibles&#xa0;: %1. Laissez-les de côté, ou réparez-les et réessayez.</translation>
    </message>
    <message>
        <source>The pictures are being read.</source>
        <translation>Lecture des images en cours.</translation>
    </message>
    <message>
        <source>Pictures that cannot be read: %1. Put them right and try again, or choose others.</source>
        <translation>Images illisibles&#xa0;: %1. Réparez-les et réessayez, ou choisissez-en d’autres.</translation>
    </message>
    <message>
        <source>Now drop the head&apos;s file here, or choose it below.</source>
        <translation>Déposez maintenant ici le fichier de la tête, ou choisissez-le ci-dessous.</translation>
    </message>
    <message>
        <source>Check the settings below.</source>
        <translation>Vérifiez les réglages ci-dessous.</translation>
    </message>
    <message numerus="yes">
        <source>All %Ln pictures are read. Check the settings below, then import.</source>
        <translation>
            <numerusform>%Ln image est lue. Vérifiez les réglages ci-dessous, puis importez.</numerusform>
            <numerusform>Les %Ln images sont lues. Vérifiez les réglages ci-dessous, puis importez.</numerusform>
        </translation>
    </message>
    <message>
        <source>a few seconds left</source>
        <translation>encore quelques secondes</translation>
    </message>
    <message numerus="yes">
        <source>about %n seconds left</source>
        <translation>
            <numerusform>encore %n seconde environ</numerusform>
            <numerusform>encore %n secondes environ</numerusform>
        </translation>
    </message>
    <message>
        <source>about a minute left</source>
        <translation>encore une minute environ</translation>
    </message>
    <message numerus="yes">
        <source>about %n minutes left</source>
        <translation>
            <numerusform>encore %n minute environ</numerusform>
            <numerusform>encore %n minutes environ</numerusform>
        </translation>
    </message>
    <message>
        <source>about %1 hours left</source>
        <translation>encore %1&#xa0;h environ</translation>
    </message>
</context>
<context>
    <name>ImportBar</name>
    <message>
        <source>&amp;Stop reading</source>
        <translation>Arrêter la &amp;lecture</translation>
    </message>
    <message>
        <source>Try a&amp;gain</source>
        <translation>&amp;Réessayer</translation>
    </message>
    <message>
        <source>&amp;Leave them out</source>
        <translation>Laisser de &amp;côté</translation>
    </message>
    <message>
        <source>Pictures that cannot be read</source>
        <translation>Images illisibles</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln pictures</source>
        <translation>
            <numerusform>%1 sur %Ln image</numerusform>
            <numerusform>%1 sur %Ln images</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>… and %Ln more</source>
        <translation>
            <numerusform>… et %Ln autre</numerusform>
            <numerusform>… et %Ln autres</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>ImportView</name>
    <message>
        <source>&amp;Import</source>
        <translation>&amp;Importer</translation>
    </message>
    <message>
        <source>&amp;Back to the heads</source>
        <translation>Retour aux &amp;têtes</translation>
    </message>
    <message>
        <source>Take the &amp;decimals of the angles too</source>
        <translation>Prendre aussi les &amp;décimales des angles</translation>
    </message>
    <message>
        <source>Use the order “rows &amp;upward, to and fro”</source>
        <translation>Utiliser l’ordre «&#xa0;lignes vers le &amp;haut, en va-et-vient&#xa0;»</translation>
    </message>
    <message>
        <source>For heads that shoot every other row backwards, beginning below. The orders under “Shoot layout” take its place again.</source>
        <translation>Pour les têtes qui commencent par le bas et photographient une ligne sur deux à rebours. Les ordres sous «&#xa0;Grille de prise de vue&#xa0;» reprennent sa place.</translation>
    </message>
    <message>
        <source>“%1” is no file of this head and was left out.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un fichier de cette tête et a été laissé de côté.</translation>
    </message>
    <message>
        <source>Back to the heads</source>
        <translation>Retour aux têtes</translation>
    </message>
    <message>
        <source>The pictures and settings of this import will be forgotten. Leave it?</source>
        <translation>Les images et les réglages de cet import seront oubliés. Le quitter&#xa0;?</translation>
    </message>
    <message>
        <source>Focal length</source>
        <translation>Longueur focale</translation>
    </message>
    <message>
        <source>Not all pictures tell their focal length, and the project needs it.
Focal length of all pictures in mm, as on 36 × 24 mm film:</source>
        <translation>Certaines images n’indiquent pas leur longueur focale, et le projet en a besoin.
Longueur focale de toutes les images en mm, comme en 24 × 36&#xa0;mm&#xa0;:</translation>
    </message>
    <message>
        <source>The format counts in whole degrees and drops decimals. Angles in this script that have some: %1, the first in line %2 (%3).</source>
        <translation>Le format compte en degrés entiers et laisse tomber les décimales. Angles de ce script qui en ont&#xa0;: %1, le premier à la ligne %2 (%3).</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message numerus="yes">
        <source>“%1” tells of %Ln shots.</source>
        <translation>
            <numerusform>«&#xa0;%1&#xa0;» décrit %Ln prise de vue.</numerusform>
            <numerusform>«&#xa0;%1&#xa0;» décrit %Ln prises de vue.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln pictures come with it.</source>
        <translation>
            <numerusform>%Ln image l’accompagne.</numerusform>
            <numerusform>%Ln images l’accompagnent.</numerusform>
        </translation>
    </message>
    <message>
        <source>Which head wrote it?</source>
        <translation>Quelle tête a écrit ce fichier&#xa0;?</translation>
    </message>
    <message>
        <source>Pictures without the file of a head: %1. A Gigapan grid needs none; for another head choose it here and add its file then.</source>
        <translation>Images sans le fichier d’une tête&#xa0;: %1. Une grille Gigapan n’en a pas besoin&#xa0;; pour une autre tête, choisissez-la ici, puis ajoutez son fichier.</translation>
    </message>
    <message>
        <source>The page of this import is gone. Start the program again.</source>
        <translation>La page de cet import a disparu. Relancez le programme.</translation>
    </message>
    <message>
        <source>%1 import — %2</source>
        <translation>Import %1 — %2</translation>
    </message>
    <message>
        <source>Is this right?</source>
        <translation>Est-ce bien cela&#xa0;?</translation>
    </message>
    <message>
        <source>Check the rows, the overlap and the focal length before you go on.</source>
        <translation>Vérifiez les lignes, le recouvrement et la longueur focale avant de continuer.</translation>
    </message>
    <message>
        <source>Check the focal length and the lens before you go on.</source>
        <translation>Vérifiez la longueur focale et l’objectif avant de continuer.</translation>
    </message>
    <message>
        <source>&amp;Change the settings</source>
        <translation>&amp;Modifier les réglages</translation>
    </message>
    <message>
        <source>Import &amp;all the same</source>
        <translation>&amp;Importer quand même</translation>
    </message>
    <message>
        <source>Save the project</source>
        <translation>Enregistrer le projet</translation>
    </message>
    <message>
        <source>Hugin projects (*.pto)</source>
        <translation>Projets Hugin (*.pto)</translation>
    </message>
    <message>
        <source>There is nothing to import: the settings leave no location.</source>
        <translation>Il n’y a rien à importer&#xa0;: les réglages ne laissent aucune position.</translation>
    </message>
    <message>
        <source>“%1” cannot be written: %2.</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être écrit&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The project cannot be made: %1.</source>
        <translation>Le projet ne peut pas être créé&#xa0;: %1.</translation>
    </message>
    <message>
        <source>The project could not be written: %1.</source>
        <translation>Le projet n’a pas pu être écrit&#xa0;: %1.</translation>
    </message>
</context>
<context>
    <name>MapLayout</name>
    <message>
        <source>The record has neither directions nor a grid to place its locations by.</source>
        <translation>L’enregistrement n’a ni directions ni grille d’après lesquelles placer ses positions.</translation>
    </message>
    <message>
        <source>There are no locations.</source>
        <translation>Il n’y a aucune position.</translation>
    </message>
    <message>
        <source>Locations without a valid direction: %1.</source>
        <translation>Positions sans direction valable&#xa0;: %1.</translation>
    </message>
</context>
<context>
    <name>MapView</name>
    <message>
        <source>Map of the locations</source>
        <translation>Carte des positions</translation>
    </message>
</context>
<context>
    <name>Need</name>
    <message>
        <source>%1 GB</source>
        <translation>%1&#xa0;Go</translation>
    </message>
    <message>
        <source>this needs some %1 of memory, and there are %2; a narrower panorama needs less</source>
        <translation>Il faut environ %1 de mémoire, et %2 sont libres&#xa0;; un panorama moins large en demande moins</translation>
    </message>
    <message>
        <source>this needs some %1 on the disk of %2, where %3 are free; a narrower panorama needs less</source>
        <translation>Il faut environ %1 sur le disque de %2, où %3 sont libres&#xa0;; un panorama moins large en demande moins</translation>
    </message>
</context>
<context>
    <name>OutputFile</name>
    <message>
        <source>is a folder</source>
        <translation>est un dossier</translation>
    </message>
    <message>
        <source>there is no folder %1</source>
        <translation>il n’y a pas de dossier %1</translation>
    </message>
    <message>
        <source>is one of the files that the import reads</source>
        <translation>est un des fichiers que lit l’import</translation>
    </message>
    <message>
        <source>is no regular file</source>
        <translation>n’est pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>is a picture or a head&apos;s file, which is never written over</source>
        <translation>est une image ou le fichier d’une tête, qui n’est jamais écrasé</translation>
    </message>
    <message>
        <source>%1: cannot be written</source>
        <translation>%1&#xa0;: ne peut pas être écrit</translation>
    </message>
    <message>
        <source>%1: cannot be written: %2</source>
        <translation>%1&#xa0;: ne peut pas être écrit&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>PictureFacts</name>
    <message>
        <source>the link leads nowhere</source>
        <translation>le lien ne mène nulle part</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>fichier introuvable</translation>
    </message>
    <message>
        <source>is a folder</source>
        <translation>est un dossier</translation>
    </message>
    <message>
        <source>is no regular file</source>
        <translation>n’est pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>cannot be opened: %1</source>
        <translation>ne peut pas être ouvert&#xa0;: %1</translation>
    </message>
    <message>
        <source>is empty</source>
        <translation>est vide</translation>
    </message>
    <message>
        <source>is cut short, the picture is not whole</source>
        <translation>est tronqué, l’image n’est pas entière</translation>
    </message>
    <message>
        <source>is not a picture that can be read</source>
        <translation>n’est pas une image lisible</translation>
    </message>
</context>
<context>
    <name>Placement</name>
    <message>
        <source>the record has %1 yaws, %2 pitches and %3 rolls for %4 locations</source>
        <translation>l’enregistrement a %1 lacets, %2 tangages et %3 roulis pour %4 positions</translation>
    </message>
    <message>
        <source>the angles of location %1 are no numbers</source>
        <translation>les angles de la position %1 ne sont pas des nombres</translation>
    </message>
    <message>
        <source>the record has %1 locations and no grid of %2 rows</source>
        <translation>l’enregistrement a %1 positions et pas de grille de %2 lignes</translation>
    </message>
    <message>
        <source>the record has no locations</source>
        <translation>l’enregistrement n’a aucune position</translation>
    </message>
</context>
<context>
    <name>Progress</name>
    <message>
        <source>matching</source>
        <translation>comparaison</translation>
    </message>
    <message>
        <source>matching again</source>
        <translation>nouvelle comparaison</translation>
    </message>
    <message>
        <source>searching</source>
        <translation>recherche</translation>
    </message>
    <message>
        <source>adjusting</source>
        <translation>optimisation</translation>
    </message>
    <message>
        <source>Evening out brightness</source>
        <translation>Égalisation de la luminosité</translation>
    </message>
    <message>
        <source>Remapping</source>
        <translation>Projection des images</translation>
    </message>
    <message>
        <source>Merging exposures</source>
        <translation>Fusion des expositions</translation>
    </message>
    <message>
        <source>Blending</source>
        <translation>Assemblage</translation>
    </message>
    <message>
        <source>Making tiles</source>
        <translation>Création des tuiles</translation>
    </message>
</context>
<context>
    <name>PtoProject</name>
    <message>
        <source>%1: a project cannot name a file with a quotation mark or a control character in its path</source>
        <translation>%1&#xa0;: un projet ne peut pas nommer un fichier dont le chemin contient un guillemet ou un caractère de contrôle</translation>
    </message>
    <message>
        <source>%1: has not been read</source>
        <translation>%1&#xa0;: n’a pas été lu</translation>
    </message>
    <message>
        <source>%1: no usable focal length is known</source>
        <translation>%1&#xa0;: aucune longueur focale utilisable n’est connue</translation>
    </message>
    <message>
        <source>there is no picture</source>
        <translation>il n’y a pas d’image</translation>
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
        <translation>fisheye</translation>
    </message>
    <message>
        <source>standard</source>
        <translation>standard</translation>
    </message>
    <message>
        <source>%1, in stacks of %2</source>
        <translation>%1, par piles de %2</translation>
    </message>
    <message>
        <source>%1, in stacks of %2 to %3</source>
        <translation>%1, par piles de %2 à %3</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>none</source>
        <translation>aucun</translation>
    </message>
    <message>
        <source>Focal length</source>
        <translation>Longueur focale</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>Objectif</translation>
    </message>
    <message>
        <source>%1, from the pictures</source>
        <translation>%1, d’après les images</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 à %2</translation>
    </message>
    <message>
        <source>%1, from the head&apos;s file</source>
        <translation>%1, d’après le fichier de la tête</translation>
    </message>
    <message>
        <source>%1, set by hand</source>
        <translation>%1, choisi à la main</translation>
    </message>
    <message>
        <source>Field of view</source>
        <translation>Angle de champ</translation>
    </message>
    <message>
        <source>%1 a picture</source>
        <translation>%1 par image</translation>
    </message>
    <message>
        <source>%1, together %2</source>
        <translation>%1, ensemble %2</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 pictures do not tell their focal length, so %2, the mean of all, is too short.</source>
        <translation>
            <numerusform>%Ln image sur %1 n’indique pas sa longueur focale&#xa0;: la moyenne de toutes, %2, est donc trop courte.</numerusform>
            <numerusform>%Ln images sur %1 n’indiquent pas leur longueur focale&#xa0;: la moyenne de toutes, %2, est donc trop courte.</numerusform>
        </translation>
    </message>
    <message>
        <source>With an overlap of %1 % all pictures lie in one place.</source>
        <translation>Avec un recouvrement de %1&#xa0;%, toutes les images sont au même endroit.</translation>
    </message>
    <message numerus="yes">
        <source>From the lowest to the highest of %Ln rows it would be %1, but straight down to straight up is only 180°.</source>
        <translation>
            <numerusform>De la plus basse à la plus haute de %Ln ligne, cela ferait %1, mais du nadir au zénith il n’y a que 180°.</numerusform>
            <numerusform>De la plus basse à la plus haute des %Ln lignes, cela ferait %1, mais du nadir au zénith il n’y a que 180°.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln columns would take %1, which is more than a full turn.</source>
        <translation>
            <numerusform>%Ln colonne prendrait %1, plus qu’un tour complet.</numerusform>
            <numerusform>%Ln colonnes prendraient %1, plus qu’un tour complet.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The pictures of %Ln columns see %1 together, too little to close a full turn.</source>
        <translation>
            <numerusform>Les images de %Ln colonne couvrent ensemble %1, trop peu pour fermer un tour complet.</numerusform>
            <numerusform>Les images de %Ln colonnes couvrent ensemble %1, trop peu pour fermer un tour complet.</numerusform>
        </translation>
    </message>
    <message>
        <source>Locations</source>
        <translation>Positions</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Links</source>
        <translation>Liens</translation>
    </message>
    <message>
        <source>No lens has a focal length of %1.</source>
        <translation>Aucun objectif n’a une longueur focale de %1.</translation>
    </message>
    <message>
        <source>No location is linked with another: at this focal length the pictures do not seem to overlap.</source>
        <translation>Aucune position n’est liée à une autre&#xa0;: à cette longueur focale, les images ne semblent pas se recouvrir.</translation>
    </message>
    <message>
        <source>Every location is linked with every other: the focal length seems to be too short for this shooting.</source>
        <translation>Chaque position est liée à toutes les autres&#xa0;: la longueur focale semble trop courte pour cette prise de vue.</translation>
    </message>
</context>
<context>
    <name>RecordMap</name>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Location %1</source>
        <translation>Position %1</translation>
    </message>
    <message>
        <source>row %1, column %2</source>
        <translation>ligne %1, colonne %2</translation>
    </message>
    <message>
        <source>yaw %1, pitch %2</source>
        <translation>lacet %1, tangage %2</translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>et %Ln autre</numerusform>
            <numerusform>et %Ln autres</numerusform>
        </translation>
    </message>
    <message>
        <source>Locations: %1, pictures: %2, links: %3</source>
        <translation>Positions&#xa0;: %1, images&#xa0;: %2, liens&#xa0;: %3</translation>
    </message>
    <message>
        <source>near each other</source>
        <translation>proches</translation>
    </message>
    <message>
        <source>one above the other</source>
        <translation>l’un au-dessus de l’autre</translation>
    </message>
    <message>
        <source>side by side</source>
        <translation>côte à côte</translation>
    </message>
    <message>
        <source>diagonal, down to the right</source>
        <translation>en diagonale, vers le bas à droite</translation>
    </message>
    <message>
        <source>diagonal, down to the left</source>
        <translation>en diagonale, vers le bas à gauche</translation>
    </message>
    <message>
        <source>of kind %1</source>
        <translation>de type %1</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>Or drop the head&apos;s file and the pictures anywhere on this window.</source>
        <translation>Ou déposez le fichier de la tête et les images n’importe où dans cette fenêtre.</translation>
    </message>
    <message>
        <source>&amp;Forget these files</source>
        <translation>&amp;Oublier ces fichiers</translation>
    </message>
    <message>
        <source>Which head took the pictures?</source>
        <translation>Quelle tête a pris les images&#xa0;?</translation>
    </message>
</context>
<context>
    <name>StitchObstacle</name>
    <message>
        <source>%1: Hugin&apos;s tools cannot read such a file; develop or convert it to .tif or .jpg and import that</source>
        <translation>%1&#xa0;: les outils de Hugin ne savent pas lire un tel fichier&#xa0;; développez-le ou convertissez-le en .tif ou .jpg, puis importez le résultat</translation>
    </message>
    <message numerus="yes">
        <source>%1: Hugin&apos;s tools cannot read such a file; develop or convert it and %Ln more to .tif or .jpg and import that</source>
        <translation>
            <numerusform>%1&#xa0;: les outils de Hugin ne savent pas lire un tel fichier&#xa0;; développez-le ou convertissez-le, avec %Ln autre, en .tif ou .jpg, puis importez le résultat</numerusform>
            <numerusform>%1&#xa0;: les outils de Hugin ne savent pas lire un tel fichier&#xa0;; développez-le ou convertissez-le, avec %Ln autres, en .tif ou .jpg, puis importez le résultat</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: radiance needs the name of an .exr</source>
        <translation>%1&#xa0;: la radiance demande un nom en .exr</translation>
    </message>
    <message>
        <source>%1: only radiance is written as .exr; .jpg and .tif are for the rest</source>
        <translation>%1&#xa0;: seule la radiance s’écrit en .exr&#xa0;; .jpg et .tif sont pour le reste</translation>
    </message>
    <message>
        <source>%1: a panorama is a .jpg, a .tif, or for radiance an .exr</source>
        <translation>%1&#xa0;: un panorama est un .jpg, un .tif ou, pour la radiance, un .exr</translation>
    </message>
    <message>
        <source>%1: would have %2 pixels a side, and a JPEG has at most %3; a .tif or a narrower panorama would do</source>
        <translation>%1&#xa0;: aurait %2 pixels de côté, et un JPEG en a au plus %3&#xa0;; un .tif ou un panorama moins large conviendrait</translation>
    </message>
</context>
<context>
    <name>Stitching</name>
    <message>
        <source>%1: cannot be read</source>
        <translation>%1&#xa0;: ne peut pas être lu</translation>
    </message>
</context>
<context>
    <name>SummaryPage</name>
    <message>
        <source>Show where the pictures e&amp;nd</source>
        <translation>Montrer les &amp;bords des images</translation>
    </message>
    <message>
        <source>Show where they are &amp;joined</source>
        <translation>Montrer les &amp;raccords</translation>
    </message>
    <message>
        <source>&amp;Open in Hugin</source>
        <translation>&amp;Ouvrir dans Hugin</translation>
    </message>
    <message>
        <source>&amp;Show the folder</source>
        <translation>Montrer le &amp;dossier</translation>
    </message>
    <message>
        <source>&amp;Import another</source>
        <translation>Nouvel &amp;import</translation>
    </message>
    <message>
        <source>Map</source>
        <translation>Carte</translation>
    </message>
    <message>
        <source>“%1” is ready</source>
        <translation>«&#xa0;%1&#xa0;» est prêt</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1&#xa0;:</translation>
    </message>
    <message>
        <source>Open in Hugin</source>
        <translation>Ouvrir dans Hugin</translation>
    </message>
    <message>
        <source>Hugin was not found on this computer. Install it (on Debian: the package “hugin”), then open the project with it:
%1</source>
        <translation>Hugin n’a pas été trouvé sur cet ordinateur. Installez-le (sous Debian&#xa0;: le paquet «&#xa0;hugin&#xa0;»), puis ouvrez le projet avec lui&#xa0;:
%1</translation>
    </message>
</context>
<context>
    <name>Tags</name>
    <message>
        <source>%1: its tags cannot be written: %2</source>
        <translation>%1&#xa0;: ses métadonnées ne peuvent pas être écrites&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>ToolRunner</name>
    <message>
        <source>%1 could not be started</source>
        <translation>%1 n’a pas pu être lancé</translation>
    </message>
    <message>
        <source>%1 was ended by signal %2</source>
        <translation>%1 a été arrêté par le signal %2</translation>
    </message>
    <message>
        <source>%1 failed with exit code %2</source>
        <translation>%1 a échoué avec le code %2</translation>
    </message>
    <message>
        <source>%1 ended with exit code 0, but did not write %2</source>
        <translation>%1 s’est terminé sans erreur, mais n’a pas écrit %2</translation>
    </message>
    <message>
        <source>%1 hangs</source>
        <translation>%1 ne répond plus</translation>
    </message>
    <message>
        <source>%1 is missing; Debian has it in: apt-get install %2</source>
        <translation>%1 manque&#xa0;; sous Debian&#xa0;: apt-get install %2</translation>
    </message>
    <message>
        <source>%1 are missing; Debian has them in: apt-get install %2</source>
        <translation>%1 manquent&#xa0;; sous Debian&#xa0;: apt-get install %2</translation>
    </message>
    <message>
        <source> and </source>
        <translation> et </translation>
    </message>
    <message>
        <source>%1; its log is %2</source>
        <translation>%1&#xa0;; son journal est %2</translation>
    </message>
</context>
<context>
    <name>WorkFolder</name>
    <message>
        <source>%1: is needed as a folder for the work, but is a file</source>
        <translation>%1&#xa0;: doit servir de dossier de travail, mais c’est un fichier</translation>
    </message>
    <message>
        <source>%1: the folder for the work cannot be made</source>
        <translation>%1&#xa0;: le dossier de travail ne peut pas être créé</translation>
    </message>
    <message>
        <source>%1: another run is at work there</source>
        <translation>%1&#xa0;: un autre travail y est en cours</translation>
    </message>
    <message>
        <source>%1: cannot be written to</source>
        <translation>%1&#xa0;: impossible d’y écrire</translation>
    </message>
</context>
</TS>
