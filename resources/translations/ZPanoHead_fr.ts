<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>Library</name>
    <message>
        <source>Comment</source>
        <translation>Commentaire</translation>
    </message>
</context>
<context>
    <name>UIWPClauss</name>
    <message>
        <source>N/A</source>
        <translation>n. d.</translation>
    </message>
    <message>
        <source>All Files (*.*)</source>
        <translation>Tous les fichiers (*.*)</translation>
    </message>
    <message>
        <source>Select images</source>
        <translation>Choisir les images</translation>
    </message>
    <message>
        <source>Select the preset file and/or images</source>
        <translation>Choisir le fichier de prise de vue et/ou les images</translation>
    </message>
    <message>
        <source>Clauss panohead import</source>
        <translation>Import d’une tête panoramique Clauss</translation>
    </message>
    <message>
        <source> provides special equipment for panoramic photography and VR applications.</source>
        <translation> propose du matériel spécialisé pour la photographie panoramique et les applications de réalité virtuelle.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Error parse file:%1</source>
        <translation>Erreur de lecture du fichier : %1</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>A focal length of %1 mm makes about %2 million links between the pictures, more than %3 million. Check the focal length.</source>
        <translation>Une longueur focale de %1 mm donne environ %2 millions de liens entre les images, plus de %3 millions. Vérifiez la longueur focale.</translation>
    </message>
</context>
<context>
    <name>UIWPClaussClass</name>
    <message>
        <source>Clauss Rodeon import plugin</source>
        <translation>Module d’import Clauss Rodeon</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Script file:</source>
        <translation>Fichier script :</translation>
    </message>
    <message>
        <source>Script file</source>
        <translation>Fichier script</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Choose the script file and images</source>
        <translation>Choisir le fichier script et les images</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Réinitialiser</translation>
    </message>
    <message>
        <source>Number of shoot:</source>
        <translation>Nombre de prises de vue :</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>n. d.</translation>
    </message>
    <message>
        <source>Theta:</source>
        <translation>Thêta :</translation>
    </message>
    <message>
        <source>Phi:</source>
        <translation>Phi :</translation>
    </message>
    <message>
        <source>Inverse Y coordinates</source>
        <translation>Inverser les coordonnées Y</translation>
    </message>
    <message>
        <source>Images:</source>
        <translation>Images :</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Choose the images</source>
        <translation>Choisir les images</translation>
    </message>
    <message>
        <source>Number of image:</source>
        <translation>Nombre d’images :</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Options</translation>
    </message>
    <message>
        <source>Auto detection</source>
        <translation>Détection automatique</translation>
    </message>
    <message>
        <source>Clean wrong link</source>
        <translation>Supprimer les liens erronés</translation>
    </message>
    <message>
        <source>Skip optimization</source>
        <translation>Ignorer l’optimisation</translation>
    </message>
    <message>
        <source>Guided optimization</source>
        <translation>Optimisation guidée</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
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
        <translation>Tous les fichiers (*.*)</translation>
    </message>
    <message>
        <source>Select images</source>
        <translation>Choisir les images</translation>
    </message>
    <message>
        <source>Gigapan panorama import</source>
        <translation>Import d’un panorama Gigapan</translation>
    </message>
    <message>
        <source> allows users to upload, share, and explore brilliant gigapixel+ panoramas from around the globe.</source>
        <translation> permet à ses utilisateurs de publier, de partager et d’explorer de superbes panoramas gigapixels du monde entier.</translation>
    </message>
    <message>
        <source>images in </source>
        <translation>images en </translation>
    </message>
    <message>
        <source>Pictures ignored: %1</source>
        <translation>Images ignorées : %1</translation>
    </message>
    <message>
        <source>Pictures left over: %1</source>
        <translation>Images restantes : %1</translation>
    </message>
</context>
<context>
    <name>UIWPGigapanClass</name>
    <message>
        <source>Gigapan import plugin</source>
        <translation>Module d’import Gigapan</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Images :</source>
        <translation>Images :</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Choose the images</source>
        <translation>Choisir les images</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Réinitialiser</translation>
    </message>
    <message>
        <source># Images in</source>
        <translation># images en</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Lignes</translation>
    </message>
    <message>
        <source>rows and</source>
        <translation>lignes et</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Colonnes</translation>
    </message>
    <message>
        <source>columns.</source>
        <translation>colonnes.</translation>
    </message>
    <message>
        <source>Ignore N files </source>
        <translation>Ignorer N fichiers </translation>
    </message>
    <message>
        <source>Ignore N files</source>
        <translation>Ignorer N fichiers</translation>
    </message>
    <message>
        <source>Nb image per location ( bracketing )</source>
        <translation>Nombre d’images par position (bracketing)</translation>
    </message>
    <message>
        <source>Images per location</source>
        <translation>Images par position</translation>
    </message>
    <message>
        <source>Shoot layout</source>
        <translation>Grille de prise de vue</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>Grille</translation>
    </message>
    <message>
        <source>Columns (default)</source>
        <translation>Colonnes (par défaut)</translation>
    </message>
    <message>
        <source>Rows: downward</source>
        <translation>Lignes : vers le bas</translation>
    </message>
    <message>
        <source>Rows: upward</source>
        <translation>Lignes : vers le haut</translation>
    </message>
    <message>
        <source>Columns: to left</source>
        <translation>Colonnes : vers la gauche</translation>
    </message>
    <message>
        <source>Shoot setup</source>
        <translation>Prise de vue</translation>
    </message>
    <message>
        <source>Force 360° panorama</source>
        <translation>Forcer un panorama à 360°</translation>
    </message>
    <message>
        <source>Overlapping</source>
        <translation>Recouvrement</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Pile</translation>
    </message>
    <message>
        <source>Detect links in:</source>
        <translation>Détecter les liens dans :</translation>
    </message>
    <message>
        <source>The reference level</source>
        <translation>Le niveau de référence</translation>
    </message>
    <message>
        <source>All stack levels</source>
        <translation>Tous les niveaux de la pile</translation>
    </message>
    <message>
        <source>For a stack:</source>
        <translation>Dans une pile :</translation>
    </message>
    <message>
        <source>Use hard links</source>
        <translation>Utiliser des liens fixes</translation>
    </message>
    <message>
        <source>Detect control points</source>
        <translation>Détecter des points de contrôle</translation>
    </message>
    <message>
        <source>Detection options</source>
        <translation>Options de détection</translation>
    </message>
    <message>
        <source>Auto detection</source>
        <translation>Détection automatique</translation>
    </message>
    <message>
        <source>Clean wrong link</source>
        <translation>Supprimer les liens erronés</translation>
    </message>
    <message>
        <source>Skip optimization</source>
        <translation>Ignorer l’optimisation</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
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
        <translation>n. d.</translation>
    </message>
    <message>
        <source>All Files (*.*)</source>
        <translation>Tous les fichiers (*.*)</translation>
    </message>
    <message>
        <source>XML files (*.xml)</source>
        <translation>Fichiers XML (*.xml)</translation>
    </message>
    <message>
        <source>Select images</source>
        <translation>Choisir les images</translation>
    </message>
    <message>
        <source>Select the preset file and/or images</source>
        <translation>Choisir le fichier de prise de vue et/ou les images</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>Papywizard XML has bracketing and the number of images isn&apos;t a multiple of this number of brackets.</source>
        <translation>Le XML Papywizard contient du bracketing et le nombre d’images n’en est pas un multiple.</translation>
    </message>
    <message>
        <source>Bracketing used in XML, should be multiple of that number</source>
        <translation>Le XML utilise le bracketing : le nombre d’images doit en être un multiple</translation>
    </message>
    <message>
        <source>Not the same as in XML fil</source>
        <translation>Nombre différent de celui du fichier XML</translation>
    </message>
    <message>
        <source>Focal Length difference between EXIF and XML</source>
        <translation>Longueur focale différente entre EXIF et XML</translation>
    </message>
    <message>
        <source>Lens type difference between EXIF and XML</source>
        <translation>Type d’objectif différent entre EXIF et XML</translation>
    </message>
    <message>
        <source>Papywizard import</source>
        <translation>Import Papywizard</translation>
    </message>
    <message>
        <source> is a free project to drive Merlin/Orion panorama heads. The XML file format is open and used by a wide range of motorized panorama heads.</source>
        <translation> est un projet libre de pilotage des têtes panoramiques Merlin/Orion. Son format de fichier XML est ouvert et utilisé par de nombreuses têtes motorisées.</translation>
    </message>
    <message>
        <source>A focal length of %1 mm makes about %2 million links between the pictures, more than %3 million. Check the focal length.</source>
        <translation>Une longueur focale de %1 mm donne environ %2 millions de liens entre les images, plus de %3 millions. Vérifiez la longueur focale.</translation>
    </message>
</context>
<context>
    <name>UIWPMerlinClass</name>
    <message>
        <source>Papywizard panohead control software</source>
        <translation>Logiciel de commande Papywizard pour tête panoramique</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>XML:</source>
        <translation>XML :</translation>
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
        <translation>Choisir le fichier XML et les images</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Réinitialiser</translation>
    </message>
    <message>
        <source>Number of images:</source>
        <translation>Nombre d’images :</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>n. d.</translation>
    </message>
    <message>
        <source>Yaw:</source>
        <translation>Lacet :</translation>
    </message>
    <message>
        <source>Pitch:</source>
        <translation>Tangage :</translation>
    </message>
    <message>
        <source>Bracketing:</source>
        <translation>Bracketing :</translation>
    </message>
    <message>
        <source>XML focal:</source>
        <translation>Focale (XML) :</translation>
    </message>
    <message>
        <source>Images:</source>
        <translation>Images :</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Choose the images</source>
        <translation>Choisir les images</translation>
    </message>
    <message>
        <source>Image focal:</source>
        <translation>Focale (images) :</translation>
    </message>
    <message>
        <source>Shoot setup</source>
        <translation>Prise de vue</translation>
    </message>
    <message>
        <source>Inverse Y coordinates</source>
        <translation>Inverser les coordonnées Y</translation>
    </message>
    <message>
        <source>Rotate 90 degrees to the left</source>
        <translation>Tourner de 90 degrés vers la gauche</translation>
    </message>
    <message>
        <source>Rotate 90 degrees to the right</source>
        <translation>Tourner de 90 degrés vers la droite</translation>
    </message>
    <message>
        <source>Focal length:</source>
        <translation>Longueur focale :</translation>
    </message>
    <message>
        <source>Focal length</source>
        <translation>Longueur focale</translation>
    </message>
    <message>
        <source>Use XML information</source>
        <translation>Utiliser les données du XML</translation>
    </message>
    <message>
        <source>Lens Type:</source>
        <translation>Type d’objectif :</translation>
    </message>
    <message>
        <source>Lens Type</source>
        <translation>Type d’objectif</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Fisheye</source>
        <translation>Fisheye</translation>
    </message>
    <message>
        <source>Use image information</source>
        <translation>Utiliser les données des images</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Pile</translation>
    </message>
    <message>
        <source>Detect links in:</source>
        <translation>Détecter les liens dans :</translation>
    </message>
    <message>
        <source>The reference level</source>
        <translation>Le niveau de référence</translation>
    </message>
    <message>
        <source>All stack levels</source>
        <translation>Tous les niveaux de la pile</translation>
    </message>
    <message>
        <source>For a stack:</source>
        <translation>Dans une pile :</translation>
    </message>
    <message>
        <source>Use hard links</source>
        <translation>Utiliser des liens fixes</translation>
    </message>
    <message>
        <source>Detect control points</source>
        <translation>Détecter des points de contrôle</translation>
    </message>
    <message>
        <source>Detection options</source>
        <translation>Options de détection</translation>
    </message>
    <message>
        <source>Auto detection</source>
        <translation>Détection automatique</translation>
    </message>
    <message>
        <source>Clean wrong link</source>
        <translation>Supprimer les liens erronés</translation>
    </message>
    <message>
        <source>Skip optimization</source>
        <translation>Ignorer l’optimisation</translation>
    </message>
    <message>
        <source>Use recorded location</source>
        <translation>Utiliser la position enregistrée</translation>
    </message>
    <message>
        <source>Header details</source>
        <translation>Détails de l’en-tête</translation>
    </message>
    <message>
        <source>Title:</source>
        <translation>Titre :</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titre</translation>
    </message>
    <message>
        <source>GPS:</source>
        <translation>GPS :</translation>
    </message>
    <message>
        <source>GPS</source>
        <translation>GPS</translation>
    </message>
    <message>
        <source>Comment:</source>
        <translation>Commentaire :</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Commentaire</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
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
        <translation>n. d.</translation>
    </message>
    <message>
        <source>All Files (*.*)</source>
        <translation>Tous les fichiers (*.*)</translation>
    </message>
    <message>
        <source>XML files (*.xml)</source>
        <translation>Fichiers XML (*.xml)</translation>
    </message>
    <message>
        <source>Select images</source>
        <translation>Choisir les images</translation>
    </message>
    <message>
        <source>Select the preset file and/or images</source>
        <translation>Choisir le fichier de prise de vue et/ou les images</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>Papywizard XML has bracketing and the number of images isn&apos;t a multiple of this number of brackets.</source>
        <translation>Le XML Papywizard contient du bracketing et le nombre d’images n’en est pas un multiple.</translation>
    </message>
    <message>
        <source>Bracketing used in XML, should be multiple of that number</source>
        <translation>Le XML utilise le bracketing : le nombre d’images doit en être un multiple</translation>
    </message>
    <message>
        <source>Not the same as in XML fil</source>
        <translation>Nombre différent de celui du fichier XML</translation>
    </message>
    <message>
        <source>Focal length difference between EXIF and XML</source>
        <translation>Longueur focale différente entre EXIF et XML</translation>
    </message>
    <message>
        <source>Lens type difference between EXIF and XML</source>
        <translation>Type d’objectif différent entre EXIF et XML</translation>
    </message>
    <message>
        <source>VR Drive 2</source>
        <translation>VR Drive 2</translation>
    </message>
    <message>
        <source> plug-in enables an automated HDR workflow with all parameters set for true light rendering and easy use of %1 software.</source>
        <translation> : ce module automatise le traitement HDR, tous les paramètres étant réglés pour un rendu fidèle de la lumière et un usage simple de %1.</translation>
    </message>
    <message>
        <source>A focal length of %1 mm makes about %2 million links between the pictures, more than %3 million. Check the focal length.</source>
        <translation>Une longueur focale de %1 mm donne environ %2 millions de liens entre les images, plus de %3 millions. Vérifiez la longueur focale.</translation>
    </message>
</context>
<context>
    <name>UIWPVRDrive2Class</name>
    <message>
        <source>VR Drive II import plugin</source>
        <translation>Module d’import VR Drive II</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Images:</source>
        <translation>Images :</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Choose the images</source>
        <translation>Choisir les images</translation>
    </message>
    <message>
        <source>Number of images:</source>
        <translation>Nombre d’images :</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>n. d.</translation>
    </message>
    <message>
        <source>Image focal:</source>
        <translation>Focale (images) :</translation>
    </message>
    <message>
        <source>XML:</source>
        <translation>XML :</translation>
    </message>
    <message>
        <source>XML</source>
        <translation>XML</translation>
    </message>
    <message>
        <source>Choose the XML file and images</source>
        <translation>Choisir le fichier XML et les images</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Réinitialiser</translation>
    </message>
    <message>
        <source>Yaw:</source>
        <translation>Lacet :</translation>
    </message>
    <message>
        <source>Pitch:</source>
        <translation>Tangage :</translation>
    </message>
    <message>
        <source>Bracketing:</source>
        <translation>Bracketing :</translation>
    </message>
    <message>
        <source>XML focal:</source>
        <translation>Focale (XML) :</translation>
    </message>
    <message>
        <source>Output:</source>
        <translation>Sortie :</translation>
    </message>
    <message>
        <source>8-bits / 16-bits tonemapped</source>
        <translation>8 bits / 16 bits, tons mappés</translation>
    </message>
    <message>
        <source>32-bits HDR radiance</source>
        <translation>32 bits, radiance HDR</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>TextLabel</translation>
    </message>
    <message>
        <source>Shoot setup</source>
        <translation>Prise de vue</translation>
    </message>
    <message>
        <source>Inverse Y coordinates</source>
        <translation>Inverser les coordonnées Y</translation>
    </message>
    <message>
        <source>Rotate 90 degrees to the left</source>
        <translation>Tourner de 90 degrés vers la gauche</translation>
    </message>
    <message>
        <source>Rotate 90 degrees to the right</source>
        <translation>Tourner de 90 degrés vers la droite</translation>
    </message>
    <message>
        <source>Focal length:</source>
        <translation>Longueur focale :</translation>
    </message>
    <message>
        <source>Focal length</source>
        <translation>Longueur focale</translation>
    </message>
    <message>
        <source>Use XML information</source>
        <translation>Utiliser les données du XML</translation>
    </message>
    <message>
        <source>Lens Type:</source>
        <translation>Type d’objectif :</translation>
    </message>
    <message>
        <source>Lens Type</source>
        <translation>Type d’objectif</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Fisheye</source>
        <translation>Fisheye</translation>
    </message>
    <message>
        <source>Use image information</source>
        <translation>Utiliser les données des images</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Pile</translation>
    </message>
    <message>
        <source>Detect links in:</source>
        <translation>Détecter les liens dans :</translation>
    </message>
    <message>
        <source>The reference level</source>
        <translation>Le niveau de référence</translation>
    </message>
    <message>
        <source>All stack levels</source>
        <translation>Tous les niveaux de la pile</translation>
    </message>
    <message>
        <source>For a stack:</source>
        <translation>Dans une pile :</translation>
    </message>
    <message>
        <source>Use hard links</source>
        <translation>Utiliser des liens fixes</translation>
    </message>
    <message>
        <source>Detect control points</source>
        <translation>Détecter des points de contrôle</translation>
    </message>
    <message>
        <source>Detection options</source>
        <translation>Options de détection</translation>
    </message>
    <message>
        <source>Auto detection</source>
        <translation>Détection automatique</translation>
    </message>
    <message>
        <source>Clean wrong link</source>
        <translation>Supprimer les liens erronés</translation>
    </message>
    <message>
        <source>Skip optimization</source>
        <translation>Ignorer l’optimisation</translation>
    </message>
    <message>
        <source>Use recorded location</source>
        <translation>Utiliser la position enregistrée</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
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
        <translation>Module d’import Clauss Rodeon</translation>
    </message>
</context>
<context>
    <name>ZGigapanImport</name>
    <message>
        <source>Gigapan import plugin</source>
        <translation>Module d’import Gigapan</translation>
    </message>
</context>
<context>
    <name>ZMerlinImport</name>
    <message>
        <source>Papywizard XML import plugin</source>
        <translation>Module d’import XML Papywizard</translation>
    </message>
</context>
<context>
    <name>ZVRDrive2Import</name>
    <message>
        <source>VRDrive2 XML import plugin</source>
        <translation>Module d’import XML VRDrive2</translation>
    </message>
</context>
</TS>
