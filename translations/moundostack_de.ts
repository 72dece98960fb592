<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>LightUndoCommand</name>
    <message>
        <source>Diffuse Light Color</source>
        <translation>Diffuse Lichtfarbe</translation>
    </message>
    <message>
        <source>Specular Light Color</source>
        <translation>Glanzfarbe des Lichts</translation>
    </message>
    <message>
        <source>Light Intensity</source>
        <translation>Lichtintensität</translation>
    </message>
    <message>
        <source>Light Penumbra Angle</source>
        <translation>Halbschattenwinkel des Lichts</translation>
    </message>
    <message>
        <source>Light Cone Angle</source>
        <translation>Kegelwinkel des Lichts</translation>
    </message>
    <message>
        <source>Set Light Attenuation</source>
        <translation>Lichtabnahme einstellen</translation>
    </message>
    <message>
        <source>Set Light on/off</source>
        <translation>Licht ein-/ausschalten</translation>
    </message>
    <message>
        <source>Show Light</source>
        <translation>Licht einblenden</translation>
    </message>
    <message>
        <source>Hide Light</source>
        <translation>Licht ausblenden</translation>
    </message>
</context>
<context>
    <name>moAddTransformVariantUndoCommand</name>
    <message>
        <source>Insert transform variant &apos;%1&apos;</source>
        <translation>Transformationsvariante „%1“ einfügen</translation>
    </message>
    <message>
        <source>Insert transform variant</source>
        <translation>Transformationsvariante einfügen</translation>
    </message>
</context>
<context>
    <name>moApplyTransformationVariantUndoCommand</name>
    <message>
        <source>Apply variant to %1</source>
        <translation>Variante auf %1 anwenden</translation>
    </message>
    <message>
        <source>Apply variant</source>
        <translation>Variante anwenden</translation>
    </message>
</context>
<context>
    <name>moRemoveTransformSwitchVariantUndoCommand</name>
    <message>
        <source>Remove transform variant &apos;%1&apos;</source>
        <translation>Transformationsvariante „%1“ entfernen</translation>
    </message>
    <message>
        <source>Remove transform variant</source>
        <translation>Transformationsvariante entfernen</translation>
    </message>
</context>
<context>
    <name>moTransformVariantMoveCommand</name>
    <message>
        <source>Move transform variant &apos;%1&apos;</source>
        <translation>Transformationsvariante „%1“ verschieben</translation>
    </message>
    <message>
        <source>Move transform variant</source>
        <translation>Transformationsvariante verschieben</translation>
    </message>
</context>
<context>
    <name>moUndoHistoryModel</name>
    <message>
        <source>&lt;empty&gt;</source>
        <translation>&lt;leer&gt;</translation>
    </message>
</context>
<context>
    <name>moUndoStack</name>
    <message>
        <source>Undo/Redo History</source>
        <translation>Verlauf: Rückgängig/Wiederherstellen</translation>
    </message>
    <message>
        <source>Set </source>
        <translation>Ändern: </translation>
    </message>
</context>
<context>
    <name>moUndoStackState</name>
    <message>
        <source>Undo %1</source>
        <translation>Rückgängig: %1</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Wiederherstellen: %1</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederherstellen</translation>
    </message>
</context>
</TS>
