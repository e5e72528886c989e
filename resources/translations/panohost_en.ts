<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en">
<context>
    <name>AlignReport</name>
    <message numerus="yes">
        <source> and %Ln more</source>
        <translation>
            <numerusform> and %Ln more</numerusform>
            <numerusform> and %Ln more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln pictures</source>
        <translation>
            <numerusform>%Ln picture</numerusform>
            <numerusform>%Ln pictures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1, %Ln joined</source>
        <translation>
            <numerusform>%1, %Ln joined</numerusform>
            <numerusform>%1, %Ln joined</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %Ln held by the head: %1</source>
        <translation>
            <numerusform>, %Ln held by the head: %1</numerusform>
            <numerusform>, %Ln held by the head: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>in %Ln parts that no points join: only the head tells how they lie</source>
        <translation>
            <numerusform>in %Ln part that no points join: only the head tells how it lies</numerusform>
            <numerusform>in %Ln parts that no points join: only the head tells how they lie</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ImportAdvice</name>
    <message numerus="yes">
        <source>The head took %Ln pictures, but %1 are chosen. Too many: %2.</source>
        <translation>
            <numerusform>The head took %Ln picture, but %1 are chosen. Too many: %2.</numerusform>
            <numerusform>The head took %Ln pictures, but %1 are chosen. Too many: %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The head took %1 pictures, but %Ln are chosen. Missing: %2.</source>
        <translation>
            <numerusform>The head took %1 pictures, but %Ln is chosen. Missing: %2.</numerusform>
            <numerusform>The head took %1 pictures, but %Ln are chosen. Missing: %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The head took %Ln pictures. Drop them here, or choose them below.</source>
        <translation>
            <numerusform>The head took %Ln picture. Drop it here, or choose it below.</numerusform>
            <numerusform>The head took %Ln pictures. Drop them here, or choose them below.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>All %Ln pictures are read. Check the settings below, then import.</source>
        <translation>
            <numerusform>%Ln picture is read. Check the settings below, then import.</numerusform>
            <numerusform>All %Ln pictures are read. Check the settings below, then import.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n seconds left</source>
        <translation>
            <numerusform>about %n second left</numerusform>
            <numerusform>about %n seconds left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n minutes left</source>
        <translation>
            <numerusform>about %n minute left</numerusform>
            <numerusform>about %n minutes left</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ImportBar</name>
    <message numerus="yes">
        <source>%1 of %Ln pictures</source>
        <translation>
            <numerusform>%1 of %Ln picture</numerusform>
            <numerusform>%1 of %Ln pictures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>… and %Ln more</source>
        <translation>
            <numerusform>… and %Ln more</numerusform>
            <numerusform>… and %Ln more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message numerus="yes">
        <source>“%1” tells of %Ln shots.</source>
        <translation>
            <numerusform>“%1” tells of %Ln shot.</numerusform>
            <numerusform>“%1” tells of %Ln shots.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln pictures come with it.</source>
        <translation>
            <numerusform>%Ln picture comes with it.</numerusform>
            <numerusform>%Ln pictures come with it.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RecordFigures</name>
    <message numerus="yes">
        <source>%Ln of %1 pictures do not tell their focal length, so %2, the mean of all, is too short.</source>
        <translation>
            <numerusform>%Ln of %1 pictures does not tell its focal length, so %2, the mean of all, is too short.</numerusform>
            <numerusform>%Ln of %1 pictures do not tell their focal length, so %2, the mean of all, is too short.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>From the lowest to the highest of %Ln rows it would be %1, but straight down to straight up is only 180°.</source>
        <translation>
            <numerusform>From the lowest to the highest of %Ln row it would be %1, but straight down to straight up is only 180°.</numerusform>
            <numerusform>From the lowest to the highest of %Ln rows it would be %1, but straight down to straight up is only 180°.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln columns would take %1, which is more than a full turn.</source>
        <translation>
            <numerusform>%Ln column would take %1, which is more than a full turn.</numerusform>
            <numerusform>%Ln columns would take %1, which is more than a full turn.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The pictures of %Ln columns see %1 together, too little to close a full turn.</source>
        <translation>
            <numerusform>The pictures of %Ln column see %1 together, too little to close a full turn.</numerusform>
            <numerusform>The pictures of %Ln columns see %1 together, too little to close a full turn.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RecordMap</name>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>and %Ln more</numerusform>
            <numerusform>and %Ln more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StitchObstacle</name>
    <message numerus="yes">
        <source>%1: Hugin&apos;s tools cannot read such a file; develop or convert it and %Ln more to .tif or .jpg and import that</source>
        <translation>
            <numerusform>%1: Hugin&apos;s tools cannot read such a file; develop or convert it and %Ln more to .tif or .jpg and import that</numerusform>
            <numerusform>%1: Hugin&apos;s tools cannot read such a file; develop or convert it and %Ln more to .tif or .jpg and import that</numerusform>
        </translation>
    </message>
</context>
</TS>
