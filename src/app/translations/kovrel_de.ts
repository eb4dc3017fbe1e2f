<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AtomicFile</name>
    <message>
        <source>%1 is not a regular file.</source>
        <translation>%1 ist keine gewöhnliche Datei.</translation>
    </message>
</context>
<context>
    <name>BackdropCatalogue</name>
    <message>
        <source>Lagoon</source>
        <translation>Lagune</translation>
    </message>
    <message>
        <source>Dawn</source>
        <translation>Morgenröte</translation>
    </message>
    <message>
        <source>Dusk</source>
        <translation>Abendröte</translation>
    </message>
    <message>
        <source>Orchid</source>
        <translation>Orchidee</translation>
    </message>
    <message>
        <source>Meadow</source>
        <translation>Wiese</translation>
    </message>
    <message>
        <source>Glacier</source>
        <translation>Gletscher</translation>
    </message>
    <message>
        <source>Ember</source>
        <translation>Glut</translation>
    </message>
    <message>
        <source>Peach</source>
        <translation>Pfirsich</translation>
    </message>
    <message>
        <source>Lavender</source>
        <translation>Lavendel</translation>
    </message>
    <message>
        <source>Indigo</source>
        <translation>Indigo</translation>
    </message>
    <message>
        <source>Midnight</source>
        <translation>Mitternacht</translation>
    </message>
    <message>
        <source>Northern light</source>
        <translation>Nordlicht</translation>
    </message>
    <message>
        <source>Coral reef</source>
        <translation>Korallenriff</translation>
    </message>
    <message>
        <source>Mint</source>
        <translation>Minze</translation>
    </message>
    <message>
        <source>Honey</source>
        <translation>Honig</translation>
    </message>
    <message>
        <source>Berry</source>
        <translation>Beere</translation>
    </message>
    <message>
        <source>Iris</source>
        <translation>Iris</translation>
    </message>
    <message>
        <source>Sand</source>
        <translation>Sand</translation>
    </message>
    <message>
        <source>Fog</source>
        <translation>Nebel</translation>
    </message>
    <message>
        <source>Graphite</source>
        <translation>Graphit</translation>
    </message>
    <message>
        <source>Dunes</source>
        <translation>Dünen</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Papier</translation>
    </message>
    <message>
        <source>Waves</source>
        <translation>Wellen</translation>
    </message>
    <message>
        <source>Mist</source>
        <translation>Dunst</translation>
    </message>
    <message>
        <source>Aurora</source>
        <translation>Aurora</translation>
    </message>
    <message>
        <source>Silk</source>
        <translation>Seide</translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation>Netz</translation>
    </message>
    <message>
        <source>Horizon</source>
        <translation>Horizont</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Weiß</translation>
    </message>
    <message>
        <source>Pearl</source>
        <translation>Perle</translation>
    </message>
    <message>
        <source>Silver</source>
        <translation>Silber</translation>
    </message>
    <message>
        <source>Slate</source>
        <translation>Schiefer</translation>
    </message>
    <message>
        <source>Charcoal</source>
        <translation>Anthrazit</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Coral</source>
        <translation>Koralle</translation>
    </message>
    <message>
        <source>Apricot</source>
        <translation>Aprikose</translation>
    </message>
    <message>
        <source>Butter</source>
        <translation>Butter</translation>
    </message>
    <message>
        <source>Sage</source>
        <translation>Salbei</translation>
    </message>
    <message>
        <source>Teal</source>
        <translation>Petrol</translation>
    </message>
    <message>
        <source>Sky</source>
        <translation>Himmel</translation>
    </message>
    <message>
        <source>Lilac</source>
        <translation>Flieder</translation>
    </message>
</context>
<context>
    <name>BackdropLooks</name>
    <message>
        <source>Hover</source>
        <translation>Schwebend</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Papier</translation>
    </message>
    <message>
        <source>Stage</source>
        <translation>Bühne</translation>
    </message>
    <message>
        <source>Window Light</source>
        <translation>Fensterlicht</translation>
    </message>
    <message>
        <source>Passe-Partout</source>
        <translation>Passepartout</translation>
    </message>
    <message>
        <source>Glass Rim</source>
        <translation>Glasrand</translation>
    </message>
    <message>
        <source>Slide</source>
        <translation>Folie</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Quadrat</translation>
    </message>
</context>
<context>
    <name>CardChrome</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Pin to Screen</source>
        <translation>An Bildschirm anheften</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
</context>
<context>
    <name>CardsFeature</name>
    <message>
        <source>There is no closed card that could come back</source>
        <translation>Es gibt keine geschlossene Karte, die wiederkommen könnte</translation>
    </message>
    <message>
        <source>Text copied</source>
        <translation>Text kopiert</translation>
    </message>
</context>
<context>
    <name>CommandTable</name>
    <message>
        <source>Capture Area</source>
        <translation>Bereich aufnehmen</translation>
    </message>
    <message>
        <source>Capture Window</source>
        <translation>Fenster aufnehmen</translation>
    </message>
    <message>
        <source>Capture Full Screen</source>
        <translation>Ganzen Bildschirm aufnehmen</translation>
    </message>
    <message>
        <source>Capture Last Area</source>
        <translation>Letzten Bereich aufnehmen</translation>
    </message>
    <message>
        <source>Capture with Self-Timer</source>
        <translation>Mit Selbstauslöser aufnehmen</translation>
    </message>
    <message>
        <source>Extract Text</source>
        <translation>Text extrahieren</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen…</translation>
    </message>
    <message>
        <source>Pick Color</source>
        <translation>Farbpipette</translation>
    </message>
    <message>
        <source>Recent Captures</source>
        <translation>Letzte Aufnahmen</translation>
    </message>
    <message>
        <source>Reopen Closed Capture</source>
        <translation>Geschlossene Aufnahme wieder öffnen</translation>
    </message>
    <message>
        <source>Feedback…</source>
        <translation>Rückmeldung…</translation>
    </message>
    <message>
        <source>Measure Screen</source>
        <translation>Bildschirm messen</translation>
    </message>
</context>
<context>
    <name>DesktopSession</name>
    <message>
        <source>“Plasma (X11)”</source>
        <translation>„Plasma (X11)“</translation>
    </message>
    <message>
        <source>“Ubuntu on Xorg”</source>
        <translation>„Ubuntu auf Xorg“</translation>
    </message>
    <message>
        <source>“GNOME on Xorg”</source>
        <translation>„GNOME auf Xorg“</translation>
    </message>
    <message>
        <source>one with “X11” or “Xorg” in its name</source>
        <translation>eine mit „X11“ oder „Xorg“ im Namen</translation>
    </message>
    <message>
        <source>Log out, choose an X11 (Xorg) session at the login screen and start Kovrel there.</source>
        <translation>Abmelden, auf dem Anmeldebildschirm eine X11-Sitzung (Xorg) wählen und Kovrel dort starten.</translation>
    </message>
    <message>
        <source>Kovrel can&apos;t capture a Wayland session yet.</source>
        <translation>Kovrel kann in einer Wayland-Sitzung noch nicht aufnehmen.</translation>
    </message>
    <message>
        <source>Log out of this session.</source>
        <translation>Von dieser Sitzung abmelden.</translation>
    </message>
    <message>
        <source>At the login screen, choose %1 from the list of sessions.</source>
        <translation>Auf dem Anmeldebildschirm in der Liste der Sitzungen %1 wählen.</translation>
    </message>
    <message>
        <source>Log in, and start Kovrel again.</source>
        <translation>Anmelden und Kovrel wieder starten.</translation>
    </message>
</context>
<context>
    <name>EditorSaves</name>
    <message>
        <source>This picture has no file yet.</source>
        <translation>Für dieses Bild gibt es noch keine Datei.</translation>
    </message>
</context>
<context>
    <name>EntryTexts</name>
    <message>
        <source>Capture</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Today %1</source>
        <translation>Heute %1</translation>
    </message>
    <message>
        <source>Yesterday %1</source>
        <translation>Gestern %1</translation>
    </message>
</context>
<context>
    <name>HistoryEditor</name>
    <message>
        <source>%1 can&apos;t be written: its picture can&apos;t be encoded.</source>
        <translation>%1 kann nicht geschrieben werden: Das Bild lässt sich nicht kodieren.</translation>
    </message>
    <message>
        <source>The capture is not in the history any more.</source>
        <translation>Die Aufnahme ist nicht mehr im Verlauf.</translation>
    </message>
</context>
<context>
    <name>HistoryFeature</name>
    <message>
        <source>kept as %1</source>
        <translation>aufbewahrt als %1</translation>
    </message>
    <message>
        <source>The capture could not be kept in the history</source>
        <translation>Nicht im Verlauf aufbewahrt</translation>
    </message>
    <message>
        <source>This program can&apos;t read text.</source>
        <translation>Dieses Programm kann keinen Text erkennen.</translation>
    </message>
</context>
<context>
    <name>HistoryIndexFile</name>
    <message>
        <source>The index in %1 can&apos;t be read now.</source>
        <translation>Der Index in %1 kann derzeit nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be read.</source>
        <translation>Der Ordner %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>What is damaged in %1 can&apos;t be put aside.</source>
        <translation>Beschädigtes in %1 kann nicht beiseitegelegt werden.</translation>
    </message>
</context>
<context>
    <name>HistoryList</name>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>Cyan</translation>
    </message>
    <message>
        <source>Teal</source>
        <translation>Petrol</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>Rosa</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>Violett</translation>
    </message>
    <message>
        <source>Graphite</source>
        <translation>Graphit</translation>
    </message>
</context>
<context>
    <name>HistoryLists</name>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
</context>
<context>
    <name>HistoryRecorder</name>
    <message>
        <source>The capture can&apos;t be encoded as PNG.</source>
        <translation>Die Aufnahme kann nicht als PNG kodiert werden.</translation>
    </message>
</context>
<context>
    <name>HistorySearch</name>
    <message>
        <source>Area</source>
        <translation>Bereich</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Ganzer Bildschirm</translation>
    </message>
    <message>
        <source>Last Area</source>
        <translation>Letzter Bereich</translation>
    </message>
    <message>
        <source>Extracted Text</source>
        <translation>Extrahierter Text</translation>
    </message>
    <message>
        <source>Self-Timer</source>
        <translation>Selbstauslöser</translation>
    </message>
</context>
<context>
    <name>ImageCodec</name>
    <message>
        <source>This is no picture that Kovrel can read.</source>
        <translation>Dies ist kein Bild, das Kovrel lesen kann.</translation>
    </message>
    <message>
        <source>The picture is damaged or too large.</source>
        <translation>Das Bild ist beschädigt oder zu groß.</translation>
    </message>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>Das Bild kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>Der Arbeitsspeicher reicht nicht aus.</translation>
    </message>
    <message>
        <source>There is no picture to encode.</source>
        <translation>Es gibt kein Bild zum Kodieren.</translation>
    </message>
</context>
<context>
    <name>IncomingPictures</name>
    <message>
        <source>This is no picture that can be read.</source>
        <translation>Dies ist kein lesbares Bild.</translation>
    </message>
    <message>
        <source>%1 is no picture that can be read.</source>
        <translation>%1 ist kein lesbares Bild.</translation>
    </message>
    <message>
        <source>These are more than %1 pictures; the others were left out.</source>
        <translation>Dies sind mehr als %1 Bilder; die übrigen wurden ausgelassen.</translation>
    </message>
</context>
<context>
    <name>KeyCombo</name>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfg</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos1</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>PageUp</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>PageDown</source>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Runter</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Hoch</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Druck</translation>
    </message>
    <message>
        <source>ScrollLock</source>
        <translation>Rollen</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>VolumeUp</source>
        <translation>Lauter</translation>
    </message>
    <message>
        <source>VolumeDown</source>
        <translation>Leiser</translation>
    </message>
    <message>
        <source>VolumeMute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>MediaPlay</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>MediaStop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>MediaNext</source>
        <translation>Nächster Titel</translation>
    </message>
    <message>
        <source>MediaPrevious</source>
        <translation>Voriger Titel</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
</context>
<context>
    <name>Kovrel::AccountFeature</name>
    <message>
        <source>The answer does not fit, or could not be stored</source>
        <translation>Die Antwort passt nicht oder konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Signing in failed</source>
        <translation>Anmeldung fehlgeschlagen</translation>
    </message>
    <message>
        <source>Signing out failed</source>
        <translation>Abmelden ist fehlgeschlagen</translation>
    </message>
</context>
<context>
    <name>Kovrel::AlignmentPad</name>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Top Left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Top Right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Bottom Left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Bottom Right</source>
        <translation>Unten rechts</translation>
    </message>
</context>
<context>
    <name>Kovrel::AnnotationCanvasView</name>
    <message>
        <source>Canvas</source>
        <translation>Arbeitsfläche</translation>
    </message>
</context>
<context>
    <name>Kovrel::BackdropControls</name>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>Anordnung</translation>
    </message>
    <message>
        <source>Padding</source>
        <translation>Abstand</translation>
    </message>
    <message>
        <source>Corners</source>
        <translation>Ecken</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Unschärfe</translation>
    </message>
    <message>
        <source>Even out margins</source>
        <translation>Ränder ausgleichen</translation>
    </message>
    <message>
        <source>Shadow</source>
        <translation>Schatten</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>Rahmen</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Licht</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Subtle</source>
        <translation>Dezent</translation>
    </message>
    <message>
        <source>Soft</source>
        <translation>Weich</translation>
    </message>
    <message>
        <source>Deep</source>
        <translation>Tief</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Strength</source>
        <translation>Stärke</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Colour of the Frame</source>
        <translation>Rahmenfarbe</translation>
    </message>
    <message>
        <source>Colour of the page</source>
        <translation>Hintergrundfarbe</translation>
    </message>
</context>
<context>
    <name>Kovrel::BackdropFills</name>
    <message>
        <source>Looks</source>
        <translation>Stile</translation>
    </message>
    <message>
        <source>Gradients</source>
        <translation>Farbverläufe</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>No Backdrop</source>
        <translation>Kein Hintergrund</translation>
    </message>
    <message>
        <source>Save This Backdrop…</source>
        <translation>Diesen Hintergrund speichern…</translation>
    </message>
    <message>
        <source>Add Colour…</source>
        <translation>Farbe hinzufügen…</translation>
    </message>
    <message>
        <source>Add Picture…</source>
        <translation>Bild hinzufügen…</translation>
    </message>
    <message>
        <source>Rename…</source>
        <translation>Umbenennen…</translation>
    </message>
    <message>
        <source>Rename Backdrop</source>
        <translation>Hintergrund umbenennen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Remove “%1”</source>
        <translation>„%1“ entfernen</translation>
    </message>
    <message>
        <source>Hide “%1”</source>
        <translation>„%1“ ausblenden</translation>
    </message>
    <message>
        <source>Show All Hidden</source>
        <translation>Alle ausgeblendeten anzeigen</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Save Backdrop</source>
        <translation>Hintergrund speichern</translation>
    </message>
    <message>
        <source>My Backdrop %1</source>
        <translation>Mein Hintergrund %1</translation>
    </message>
    <message>
        <source>Add Picture</source>
        <translation>Bild hinzufügen</translation>
    </message>
</context>
<context>
    <name>Kovrel::BackdropPanel</name>
    <message>
        <source>Backdrop</source>
        <translation>Hintergrund</translation>
    </message>
</context>
<context>
    <name>Kovrel::CanvasSources</name>
    <message>
        <source>The picture is not shown</source>
        <translation>Das Bild wird nicht angezeigt</translation>
    </message>
    <message>
        <source>%1 is no picture that can be read.</source>
        <translation>%1 ist kein lesbares Bild.</translation>
    </message>
</context>
<context>
    <name>Kovrel::CaptureOutput</name>
    <message>
        <source>%1; kept as %2</source>
        <translation>%1; aufbewahrt als %2</translation>
    </message>
    <message>
        <source>%1 is no folder</source>
        <translation>%1 ist kein Ordner</translation>
    </message>
    <message>
        <source>The folder %1 is not there</source>
        <translation>Der Ordner %1 ist nicht vorhanden</translation>
    </message>
</context>
<context>
    <name>Kovrel::CapturePage</name>
    <message>
        <source>Self-Timer</source>
        <translation>Selbstauslöser</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Bildschirm</translation>
    </message>
    <message>
        <source>Freeze the screen while selecting</source>
        <translation>Bildschirm beim Auswählen einfrieren</translation>
    </message>
    <message>
        <source>Videos and menus stand still. Without it the screen lives on until you let go.</source>
        <translation>Videos und Menüs stehen still. Andernfalls läuft auf dem Bildschirm alles weiter, bis die Maustaste losgelassen wird.</translation>
    </message>
    <message>
        <source>still live overlay area</source>
        <translation>standbild anhalten live überlagerung bereich</translation>
    </message>
    <message>
        <source>Show the pointer in full-screen captures</source>
        <translation>Mauszeiger in Aufnahmen des ganzen Bildschirms zeigen</translation>
    </message>
    <message>
        <source>mouse cursor</source>
        <translation>maus cursor zeiger</translation>
    </message>
    <message>
        <source>Hide Kovrel&apos;s own windows during captures</source>
        <translation>Eigene Fenster von Kovrel bei Aufnahmen ausblenden</translation>
    </message>
    <message>
        <source>Cards and messages step aside. Pinned captures stay: you have put them there.</source>
        <translation>Karten und Meldungen verschwinden so lange. Angeheftete Aufnahmen bleiben, denn sie wurden bewusst dort platziert.</translation>
    </message>
    <message>
        <source>chrome cards toasts recording</source>
        <translation>oberfläche karten meldungen hinweise aufzeichnung</translation>
    </message>
    <message>
        <source>1 second</source>
        <translation>1 Sekunde</translation>
    </message>
    <message>
        <source>%1 seconds</source>
        <translation>%1 Sekunden</translation>
    </message>
    <message>
        <source>Count down from</source>
        <translation>Herunterzählen ab</translation>
    </message>
    <message>
        <source>For menus and whatever closes when the keyboard is used. Escape ends the count.</source>
        <translation>Für Menüs und alles, was sich bei einem Tastendruck schließt. Esc bricht das Herunterzählen ab.</translation>
    </message>
    <message>
        <source>delay countdown timed seconds</source>
        <translation>verzögerung countdown zeit sekunden timer</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Set windows on</source>
        <translation>Hintergrund für Fenster</translation>
    </message>
    <message>
        <source>The desktop picture</source>
        <translation>Hintergrundbild des Desktops</translation>
    </message>
    <message>
        <source>A colour</source>
        <translation>Einfarbig</translation>
    </message>
    <message>
        <source>Nothing, with shadow</source>
        <translation>Transparent, mit Schatten</translation>
    </message>
    <message>
        <source>Nothing, no shadow</source>
        <translation>Transparent, ohne Schatten</translation>
    </message>
    <message>
        <source>What surrounds a window that was captured by a click.</source>
        <translation>Was ein per Klick aufgenommenes Fenster umgibt.</translation>
    </message>
    <message>
        <source>background wallpaper transparent shadow trim backdrop</source>
        <translation>hintergrund hintergrundbild transparent schatten beschneiden</translation>
    </message>
    <message>
        <source>Colour behind windows</source>
        <translation>Farbe hinter Fenstern</translation>
    </message>
    <message>
        <source>background solid backdrop color</source>
        <translation>hintergrund einfarbig farbe</translation>
    </message>
</context>
<context>
    <name>Kovrel::CardActions</name>
    <message>
        <source>The picture of this capture can&apos;t be read</source>
        <translation>Das Bild dieser Aufnahme kann nicht gelesen werden</translation>
    </message>
</context>
<context>
    <name>Kovrel::CardChrome</name>
    <message>
        <source>Let It Close by Itself</source>
        <translation>Von selbst schließen lassen</translation>
    </message>
    <message>
        <source>Keep Until Closed</source>
        <translation>Bis zum Schließen behalten</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
    <message>
        <source>Saving…</source>
        <translation>Wird gespeichert…</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
</context>
<context>
    <name>Kovrel::CardPanel</name>
    <message>
        <source>Capture</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
</context>
<context>
    <name>Kovrel::CardQuickActionsMenu</name>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Pin to Screen</source>
        <translation>An Bildschirm anheften</translation>
    </message>
    <message>
        <source>Rotate Left</source>
        <translation>Nach links drehen</translation>
    </message>
    <message>
        <source>Rotate Right</source>
        <translation>Nach rechts drehen</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Show in Files</source>
        <translation>Im Dateimanager anzeigen</translation>
    </message>
    <message>
        <source>Open With</source>
        <translation>Öffnen mit</translation>
    </message>
    <message>
        <source>Open in Mail…</source>
        <translation>Im E-Mail-Programm öffnen…</translation>
    </message>
    <message>
        <source>Temporarily Hide</source>
        <translation>Vorübergehend ausblenden</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close All</source>
        <translation>Alle schließen</translation>
    </message>
</context>
<context>
    <name>Kovrel::CardsPage</name>
    <message>
        <source>Cards</source>
        <translation>Karten</translation>
    </message>
    <message>
        <source>Corner of the screen</source>
        <translation>Ecke des Bildschirms</translation>
    </message>
    <message>
        <source>Where cards pile up.</source>
        <translation>Wo sich Karten stapeln.</translation>
    </message>
    <message>
        <source>position place preview left right top bottom pile</source>
        <translation>position platz vorschau links rechts oben unten stapel</translation>
    </message>
    <message>
        <source>Follow the pointer to its screen</source>
        <translation>Dem Mauszeiger auf seinen Bildschirm folgen</translation>
    </message>
    <message>
        <source>Otherwise cards appear on the primary screen.</source>
        <translation>Andernfalls erscheinen Karten auf dem Hauptbildschirm.</translation>
    </message>
    <message>
        <source>mouse display monitor preview</source>
        <translation>maus anzeige monitor vorschau</translation>
    </message>
    <message>
        <source>When the time is up</source>
        <translation>Nach Ablauf der Zeit</translation>
    </message>
    <message>
        <source>Close the card</source>
        <translation>Karte schließen</translation>
    </message>
    <message>
        <source>Save the capture, then close</source>
        <translation>Aufnahme speichern, dann schließen</translation>
    </message>
    <message>
        <source>countdown auto-close save preview</source>
        <translation>countdown automatisch schließen speichern vorschau</translation>
    </message>
    <message>
        <source>Close by themselves</source>
        <translation>Automatisch schließen</translation>
    </message>
    <message>
        <source>countdown auto-close duration seconds keep preview</source>
        <translation>countdown automatisch schließen dauer sekunden behalten vorschau</translation>
    </message>
</context>
<context>
    <name>Kovrel::ChoiceButton</name>
    <message>
        <source>Custom</source>
        <translation>Angepasst</translation>
    </message>
</context>
<context>
    <name>Kovrel::CodeMenu</name>
    <message>
        <source>Open Link</source>
        <translation>Link öffnen</translation>
    </message>
    <message>
        <source>Copy Text</source>
        <translation>Text kopieren</translation>
    </message>
</context>
<context>
    <name>Kovrel::CodePill</name>
    <message>
        <source>QR code: %1</source>
        <translation>QR-Code: %1</translation>
    </message>
</context>
<context>
    <name>Kovrel::ColorWell</name>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>several</source>
        <translation>mehrere</translation>
    </message>
    <message>
        <source>Forget %1</source>
        <translation>%1 vergessen</translation>
    </message>
    <message>
        <source>Keep %1</source>
        <translation>%1 merken</translation>
    </message>
    <message>
        <source>Other Colour…</source>
        <translation>Andere Farbe…</translation>
    </message>
    <message>
        <source>Pick from Screen</source>
        <translation>Vom Bildschirm aufnehmen</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Teal</source>
        <translation>Petrol</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>Violett</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>Rosa</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Weiß</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
</context>
<context>
    <name>Kovrel::CornerField</name>
    <message>
        <source>Top left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation>Unten rechts</translation>
    </message>
</context>
<context>
    <name>Kovrel::CropBar</name>
    <message>
        <source>Free</source>
        <translation>Frei</translation>
    </message>
    <message>
        <source>Original</source>
        <translation>Original</translation>
    </message>
    <message>
        <source>Shape of the Crop</source>
        <translation>Format des Zuschnitts</translation>
    </message>
    <message>
        <source>Keep This Shape</source>
        <translation>Dieses Format beibehalten</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source>Output Size</source>
        <translation>Ausgabegröße</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Apply the Crop</source>
        <translation>Zuschnitt anwenden</translation>
    </message>
    <message>
        <source>Output Size: %1</source>
        <translation>Ausgabegröße: %1</translation>
    </message>
</context>
<context>
    <name>Kovrel::CropSizeMenu</name>
    <message>
        <source>Output Size</source>
        <translation>Ausgabegröße</translation>
    </message>
    <message>
        <source>Width in pixels</source>
        <translation>Breite in Pixeln</translation>
    </message>
    <message>
        <source>Height in pixels</source>
        <translation>Höhe in Pixeln</translation>
    </message>
    <message>
        <source>Keep the shape</source>
        <translation>Format beibehalten</translation>
    </message>
</context>
<context>
    <name>Kovrel::DefaultEditorOffer</name>
    <message>
        <source>Open pictures with Kovrel from now on?</source>
        <translation>Bilder künftig mit Kovrel öffnen?</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>Open with Kovrel</source>
        <translation>Mit Kovrel öffnen</translation>
    </message>
</context>
<context>
    <name>Kovrel::DisclosureButton</name>
    <message>
        <source>unfolded</source>
        <translation>aufgeklappt</translation>
    </message>
    <message>
        <source>folded</source>
        <translation>zugeklappt</translation>
    </message>
</context>
<context>
    <name>Kovrel::DonePage</name>
    <message>
        <source>You are all set</source>
        <translation>Alles ist bereit</translation>
    </message>
    <message>
        <source>Kovrel waits in the tray: everything it can do is in its menu there.</source>
        <translation>Kovrel wartet im Infobereich: Alles, was es kann, steht dort in seinem Menü.</translation>
    </message>
    <message>
        <source>This desktop has no tray. Start Kovrel again whenever you want its window; its keys work all the time.</source>
        <translation>Diese Arbeitsumgebung hat keinen Infobereich. Ein weiterer Start von Kovrel zeigt sein Fenster; seine Tasten wirken immer.</translation>
    </message>
    <message>
        <source>Start Kovrel at login</source>
        <translation>Kovrel bei der Anmeldung starten</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorHandout</name>
    <message>
        <source>The picture can&apos;t be handed out</source>
        <translation>Das Bild kann nicht weitergegeben werden</translation>
    </message>
    <message>
        <source>Its file can&apos;t be written.</source>
        <translation>Die Datei dafür kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Copied as a file</source>
        <translation>Als Datei kopiert</translation>
    </message>
    <message>
        <source>The picture can&apos;t be made.</source>
        <translation>Das Bild kann nicht erzeugt werden.</translation>
    </message>
    <message>
        <source>Not printed</source>
        <translation>Nicht gedruckt</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorIntake</name>
    <message>
        <source>Nothing was pasted</source>
        <translation>Nichts eingefügt</translation>
    </message>
    <message>
        <source>There is no picture on the clipboard.</source>
        <translation>Die Zwischenablage enthält kein Bild.</translation>
    </message>
    <message>
        <source>The picture can&apos;t be read.</source>
        <translation>Das Bild kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Not all was taken</source>
        <translation>Nicht alles wurde übernommen</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorKeeping</name>
    <message>
        <source>There is no history.</source>
        <translation>Es gibt keinen Verlauf.</translation>
    </message>
    <message>
        <source>The picture can&apos;t be made.</source>
        <translation>Das Bild kann nicht erzeugt werden.</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorLiveText</name>
    <message>
        <source>No text found in the capture</source>
        <translation>Kein Text in der Aufnahme gefunden</translation>
    </message>
    <message>
        <source>Text copied</source>
        <translation>Text kopiert</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorPage</name>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Escape copies the result and closes</source>
        <translation>Esc kopiert das Ergebnis und schließt</translation>
    </message>
    <message>
        <source>Otherwise Escape only closes the window. Your marks are kept either way.</source>
        <translation>Andernfalls schließt Esc nur das Fenster. Die Markierungen bleiben in jedem Fall erhalten.</translation>
    </message>
    <message>
        <source>esc copy close clipboard</source>
        <translation>esc kopieren schließen zwischenablage</translation>
    </message>
    <message>
        <source>Measure in</source>
        <translation>Messen in</translation>
    </message>
    <message>
        <source>Pixels</source>
        <translation>Pixel</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Points are pixels divided by the scale of the screen.</source>
        <translation>Punkte sind Pixel geteilt durch die Skalierung des Bildschirms.</translation>
    </message>
    <message>
        <source>unit ruler length px pt</source>
        <translation>einheit lineal länge messen px pt</translation>
    </message>
    <message>
        <source>New Marks</source>
        <translation>Neue Markierungen</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>color annotation arrow</source>
        <translation>farbe anmerkung pfeil</translation>
    </message>
    <message>
        <source>Line width</source>
        <translation>Linienstärke</translation>
    </message>
    <message>
        <source>%1 pt</source>
        <translation>%1 pt</translation>
    </message>
    <message>
        <source>stroke thickness annotation arrow</source>
        <translation>strich dicke anmerkung pfeil</translation>
    </message>
    <message>
        <source>Shapes are</source>
        <translation>Formen</translation>
    </message>
    <message>
        <source>Outlined</source>
        <translation>Nur Kontur</translation>
    </message>
    <message>
        <source>Translucent</source>
        <translation>Durchscheinend</translation>
    </message>
    <message>
        <source>Hatched</source>
        <translation>Schraffiert</translation>
    </message>
    <message>
        <source>Filled</source>
        <translation>Gefüllt</translation>
    </message>
    <message>
        <source>fill rectangle ellipse annotation</source>
        <translation>füllung rechteck ellipse anmerkung</translation>
    </message>
    <message>
        <source>Rounded corners</source>
        <translation>Abgerundete Ecken</translation>
    </message>
    <message>
        <source>rectangle annotation</source>
        <translation>rechteck anmerkung</translation>
    </message>
    <message>
        <source>A tool for which you have chosen something else in the editor keeps that.</source>
        <translation>Ein Werkzeug, für das im Editor etwas anderes gewählt wurde, behält dies bei.</translation>
    </message>
    <message>
        <source>Text, Highlighter and Spotlight</source>
        <translation>Text, Textmarker und Spotlight</translation>
    </message>
    <message>
        <source>Text stands</source>
        <translation>Textdarstellung</translation>
    </message>
    <message>
        <source>By itself</source>
        <translation>Schlicht</translation>
    </message>
    <message>
        <source>With an outline</source>
        <translation>Mit Kontur</translation>
    </message>
    <message>
        <source>On a plate</source>
        <translation>Hinterlegt</translation>
    </message>
    <message>
        <source>In a speech bubble</source>
        <translation>In einer Sprechblase</translation>
    </message>
    <message>
        <source>label style annotation</source>
        <translation>beschriftung stil anmerkung</translation>
    </message>
    <message>
        <source>Fit the highlighter to lines of text</source>
        <translation>Textmarker an Textzeilen anpassen</translation>
    </message>
    <message>
        <source>marker size automatic</source>
        <translation>marker größe automatisch</translation>
    </message>
    <message>
        <source>Darkness around spotlights</source>
        <translation>Abdunklung um Spotlights</translation>
    </message>
    <message>
        <source>dim shade focus</source>
        <translation>dunkel schatten fokus</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorTopBar</name>
    <message>
        <source>Undo (Ctrl+Z)</source>
        <translation>Rückgängig (Strg+Z)</translation>
    </message>
    <message>
        <source>Redo (Ctrl+Shift+Z)</source>
        <translation>Wiederholen (Strg+Umschalt+Z)</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Find Text (Ctrl+F)</source>
        <translation>Text suchen (Strg+F)</translation>
    </message>
    <message>
        <source>Select Text (Ctrl+T)</source>
        <translation>Text auswählen (Strg+T)</translation>
    </message>
    <message>
        <source>Backdrop (Ctrl+B)</source>
        <translation>Hintergrund (Strg+B)</translation>
    </message>
    <message>
        <source>Copy (Ctrl+C)</source>
        <translation>Kopieren (Strg+C)</translation>
    </message>
    <message>
        <source>Save (Ctrl+S)</source>
        <translation>Speichern (Strg+S)</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Drag the Picture Out</source>
        <translation>Bild herausziehen</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorWindow</name>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Not saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy as File</source>
        <translation>Als Datei kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Bring to Front</source>
        <translation>Ganz nach vorn</translation>
    </message>
    <message>
        <source>Bring Forward</source>
        <translation>Nach vorn</translation>
    </message>
    <message>
        <source>Send Backward</source>
        <translation>Nach hinten</translation>
    </message>
    <message>
        <source>Send to Back</source>
        <translation>Ganz nach hinten</translation>
    </message>
    <message>
        <source>Find…</source>
        <translation>Suchen…</translation>
    </message>
    <message>
        <source>Select Text</source>
        <translation>Text auswählen</translation>
    </message>
    <message>
        <source>Output Size…</source>
        <translation>Ausgabegröße…</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Drucken…</translation>
    </message>
    <message>
        <source>Save the changes?</source>
        <translation>Änderungen speichern?</translation>
    </message>
    <message>
        <source>The file is written with its marks in the picture; they can&apos;t be changed later.</source>
        <translation>Die Datei wird mit den Markierungen im Bild geschrieben; diese lassen sich später nicht mehr ändern.</translation>
    </message>
    <message>
        <source>The file is written with its marks in the picture; here they can still be changed later.</source>
        <translation>Die Datei wird mit ihren Markierungen im Bild geschrieben; hier lassen sie sich weiterhin ändern.</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorWindows</name>
    <message>
        <source>This capture is not there any more</source>
        <translation>Diese Aufnahme ist nicht mehr vorhanden</translation>
    </message>
    <message>
        <source>Edit Capture</source>
        <translation>Aufnahme bearbeiten</translation>
    </message>
    <message>
        <source>Not opened</source>
        <translation>Nicht geöffnet</translation>
    </message>
    <message>
        <source>%1 is no picture that can be read.</source>
        <translation>%1 ist kein lesbares Bild.</translation>
    </message>
    <message>
        <source>The edit was saved as a file of its own</source>
        <translation>Die Bearbeitung wurde als eigene Datei gespeichert</translation>
    </message>
</context>
<context>
    <name>Kovrel::FeedbackFeature</name>
    <message>
        <source>Saved as %1.</source>
        <translation>Gespeichert als %1.</translation>
    </message>
    <message>
        <source>It could not be saved: %1</source>
        <translation>Speichern ist fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Kovrel feedback</source>
        <translation>Rückmeldung zu Kovrel</translation>
    </message>
    <message>
        <source>It could not be handed to the mail program: %1</source>
        <translation>Das E-Mail-Programm ließ sich nicht öffnen: %1</translation>
    </message>
</context>
<context>
    <name>Kovrel::FeedbackWindow</name>
    <message>
        <source>Your words</source>
        <translation>Mitteilung</translation>
    </message>
    <message>
        <source>What goes with them</source>
        <translation>Was dazukommt</translation>
    </message>
    <message>
        <source>Kovrel Feedback</source>
        <translation>Rückmeldung zu Kovrel</translation>
    </message>
    <message>
        <source>Feedback</source>
        <translation>Rückmeldung</translation>
    </message>
    <message>
        <source>Kovrel sends nothing by itself. What stands here is all there is: read it, change it or take out what you like, and hand it on yourself.</source>
        <translation>Kovrel sendet nichts von sich aus. Was hier steht, ist alles: Es lässt sich lesen, ändern, kürzen und selbst weitergeben.</translation>
    </message>
    <message>
        <source>What happened, and what did you expect?</source>
        <translation>Was ist geschehen, und was war zu erwarten?</translation>
    </message>
    <message>
        <source>Open in Mail…</source>
        <translation>In E-Mail öffnen…</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation>Kopiert.</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Speichern unter…</translation>
    </message>
</context>
<context>
    <name>Kovrel::FilterChip</name>
    <message>
        <source>Remove this filter</source>
        <translation>Diesen Filter entfernen</translation>
    </message>
</context>
<context>
    <name>Kovrel::FindBar</name>
    <message>
        <source>How It Is Redacted</source>
        <translation>Art der Unkenntlichmachung</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Weichzeichnen</translation>
    </message>
    <message>
        <source>Pixelate</source>
        <translation>Verpixeln</translation>
    </message>
    <message>
        <source>Black Out</source>
        <translation>Schwärzen</translation>
    </message>
    <message>
        <source>Redact All</source>
        <translation>Alle unkenntlich machen</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Close (Escape)</source>
        <translation>Schließen (Esc)</translation>
    </message>
    <message>
        <source>Find text in this capture</source>
        <translation>Text in dieser Aufnahme suchen</translation>
    </message>
    <message>
        <source>Previous (Shift+Return)</source>
        <translation>Vorheriges (Umschalt+Eingabe)</translation>
    </message>
    <message>
        <source>Next (Return)</source>
        <translation>Nächstes (Eingabe)</translation>
    </message>
    <message>
        <source>Reading text…</source>
        <translation>Text wird gelesen…</translation>
    </message>
    <message>
        <source>The text can&apos;t be read</source>
        <translation>Text ist nicht lesbar</translation>
    </message>
    <message>
        <source>There is no text in this capture</source>
        <translation>Diese Aufnahme enthält keinen Text</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
</context>
<context>
    <name>Kovrel::FirstRunWindow</name>
    <message>
        <source>Welcome to Kovrel</source>
        <translation>Willkommen bei Kovrel</translation>
    </message>
    <message>
        <source>Your account stays here</source>
        <translation>Das Konto bleibt hier</translation>
    </message>
    <message>
        <source>Kovrel works with an account that is kept on this computer. There is nothing to fill in, and nothing is sent anywhere.</source>
        <translation>Kovrel arbeitet mit einem Konto, das auf diesem Computer bleibt. Es gibt nichts auszufüllen, und nichts wird gesendet.</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Überspringen</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Use Kovrel on This Computer</source>
        <translation>Kovrel auf diesem Computer verwenden</translation>
    </message>
    <message>
        <source>Try It Now</source>
        <translation>Jetzt ausprobieren</translation>
    </message>
    <message>
        <source>Start Using Kovrel</source>
        <translation>Mit Kovrel loslegen</translation>
    </message>
</context>
<context>
    <name>Kovrel::FolderField</name>
    <message>
        <source>Choose…</source>
        <translation>Auswählen…</translation>
    </message>
    <message>
        <source>Choose: %1</source>
        <translation>Auswählen: %1</translation>
    </message>
</context>
<context>
    <name>Kovrel::GeneralPage</name>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Start Kovrel at login</source>
        <translation>Kovrel bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>It waits in the tray, so that its shortcuts work at once.</source>
        <translation>Kovrel wartet im Infobereich, damit seine Tastenkürzel sofort funktionieren.</translation>
    </message>
    <message>
        <source>autostart boot launch session</source>
        <translation>autostart hochfahren starten sitzung</translation>
    </message>
    <message>
        <source>Settings File</source>
        <translation>Einstellungsdatei</translation>
    </message>
    <message>
        <source>Export all settings</source>
        <translation>Alle Einstellungen exportieren</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Exportieren…</translation>
    </message>
    <message>
        <source>As one file, for another computer or to be kept.</source>
        <translation>Als eine Datei, für einen anderen Computer oder zum Aufbewahren.</translation>
    </message>
    <message>
        <source>backup save move transfer</source>
        <translation>sicherung speichern umziehen übertragen</translation>
    </message>
    <message>
        <source>Import settings</source>
        <translation>Einstellungen importieren</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>Importieren…</translation>
    </message>
    <message>
        <source>Everything is then as it was when the file was exported.</source>
        <translation>Alles ist danach so wie beim Export der Datei.</translation>
    </message>
    <message>
        <source>restore load move transfer</source>
        <translation>wiederherstellen laden umziehen übertragen</translation>
    </message>
    <message>
        <source>Troubleshooting</source>
        <translation>Fehlersuche</translation>
    </message>
    <message>
        <source>Write the timing of captures to the log</source>
        <translation>Zeitlichen Ablauf von Aufnahmen protokollieren</translation>
    </message>
    <message>
        <source>Read it with: journalctl --user -t kovrel</source>
        <translation>Lesen mit: journalctl --user -t kovrel</translation>
    </message>
    <message>
        <source>debug trace slow problem journal</source>
        <translation>debuggen verfolgen langsam problem journal protokoll</translation>
    </message>
</context>
<context>
    <name>Kovrel::GreetingPage</name>
    <message>
        <source>Welcome to Kovrel</source>
        <translation>Willkommen bei Kovrel</translation>
    </message>
    <message>
        <source>Captures, kept and found again. Everything stays on this computer.</source>
        <translation>Aufnahmen, aufbewahrt und wiedergefunden. Alles bleibt auf diesem Computer.</translation>
    </message>
    <message>
        <source>Capture</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>An area, a window or the whole screen</source>
        <translation>Ein Bereich, ein Fenster oder der ganze Bildschirm</translation>
    </message>
    <message>
        <source>Mark up</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Arrows, labels, redactions, backdrops</source>
        <translation>Pfeile, Texte, Schwärzungen, Hintergründe</translation>
    </message>
    <message>
        <source>Find again</source>
        <translation>Wiederfinden</translation>
    </message>
    <message>
        <source>By any word that was on the screen</source>
        <translation>Mit jedem Wort, das auf dem Bildschirm stand</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryActions</name>
    <message>
        <source>The picture of this capture can&apos;t be read</source>
        <translation>Das Bild dieser Aufnahme kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>No text found</source>
        <translation>Kein Text gefunden</translation>
    </message>
    <message>
        <source>Text copied</source>
        <translation>Text kopiert</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryFacetOptions</name>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
    <message>
        <source>Last 7 Days</source>
        <translation>Letzte 7 Tage</translation>
    </message>
    <message>
        <source>Last 30 Days</source>
        <translation>Letzte 30 Tage</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryGrid</name>
    <message>
        <source>Captures</source>
        <translation>Aufnahmen</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryMenu</name>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Show as Card</source>
        <translation>Als Karte anzeigen</translation>
    </message>
    <message>
        <source>Pin to Screen</source>
        <translation>An Bildschirm anheften</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy Text</source>
        <translation>Text kopieren</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Speichern unter…</translation>
    </message>
    <message>
        <source>Show in Files</source>
        <translation>Im Dateimanager anzeigen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Move to List</source>
        <translation>In Liste verschieben</translation>
    </message>
    <message>
        <source>New List</source>
        <translation>Neue Liste</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Aus Liste entfernen</translation>
    </message>
    <message>
        <source>Restore to the Timeline</source>
        <translation>In der Zeitleiste wiederherstellen</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryPage</name>
    <message>
        <source>Name of the list of all captures</source>
        <translation>Name der Liste aller Aufnahmen</translation>
    </message>
    <message>
        <source>timeline title all</source>
        <translation>zeitleiste titel alle</translation>
    </message>
    <message>
        <source>Recent Captures</source>
        <translation>Letzte Aufnahmen</translation>
    </message>
    <message>
        <source>Captures in lists are kept until you delete them, and don&apos;t count.</source>
        <translation>Aufnahmen in Listen bleiben, bis sie gelöscht werden, und zählen nicht mit.</translation>
    </message>
    <message>
        <source>Keep captures in the history</source>
        <translation>Aufnahmen im Verlauf aufbewahren</translation>
    </message>
    <message>
        <source>Everything stays on this computer.</source>
        <translation>Alles bleibt auf diesem Computer.</translation>
    </message>
    <message>
        <source>record turn off privacy recent</source>
        <translation>aufzeichnen ausschalten privatsphäre datenschutz letzte</translation>
    </message>
    <message>
        <source>Turn Off</source>
        <translation>Ausschalten</translation>
    </message>
    <message>
        <source>1 capture</source>
        <translation>1 Aufnahme</translation>
    </message>
    <message>
        <source>%1 captures</source>
        <translation>%1 Aufnahmen</translation>
    </message>
    <message>
        <source>Keep the newest</source>
        <translation>Nur die neuesten behalten</translation>
    </message>
    <message>
        <source>retention number limit how many delete old</source>
        <translation>aufbewahrung anzahl grenze wie viele löschen alt</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryQuestions</name>
    <message>
        <source>Turn off history and delete 1 unsaved capture?</source>
        <translation>Verlauf ausschalten und 1 nicht gespeicherte Aufnahme löschen?</translation>
    </message>
    <message>
        <source>Turn off history and delete %1 unsaved captures?</source>
        <translation>Verlauf ausschalten und %1 nicht gespeicherte Aufnahmen löschen?</translation>
    </message>
    <message>
        <source>Kovrel stops recording new captures, and recent captures you haven&apos;t saved are deleted. Saved captures stay in the list, and files on disk are not affected.</source>
        <translation>Kovrel zeichnet keine neuen Aufnahmen mehr auf, und letzte Aufnahmen, die nicht gespeichert wurden, werden gelöscht. Gespeicherte Aufnahmen bleiben in der Liste; Dateien auf dem Datenträger sind nicht betroffen.</translation>
    </message>
    <message>
        <source>Everything else is permanently deleted from Kovrel&apos;s history; files you saved elsewhere are not affected.</source>
        <translation>Alles außerhalb von Listen wird endgültig aus dem Verlauf von Kovrel gelöscht; anderswo gespeicherte Dateien sind nicht betroffen.</translation>
    </message>
    <message>
        <source>Delete the oldest capture?</source>
        <translation>Die älteste Aufnahme löschen?</translation>
    </message>
    <message>
        <source>Delete the %1 oldest captures?</source>
        <translation>Die %1 ältesten Aufnahmen löschen?</translation>
    </message>
    <message>
        <source>They are permanently deleted from Kovrel&apos;s history, because it is to keep fewer. Captures in lists stay, and files you saved elsewhere are not affected.</source>
        <translation>Der Verlauf von Kovrel soll weniger aufbewahren; was darüber hinausgeht, wird endgültig gelöscht. Aufnahmen in Listen bleiben, und anderswo gespeicherte Dateien sind nicht betroffen.</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistorySearchField</name>
    <message>
        <source>Search applications, files, kinds and text</source>
        <translation>Anwendungen, Dateien, Arten und Text durchsuchen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistorySidebar</name>
    <message>
        <source>Lists</source>
        <translation>Listen</translation>
    </message>
    <message>
        <source>New List</source>
        <translation>Neue Liste</translation>
    </message>
    <message>
        <source>Delete All That Is in No List…</source>
        <translation>Alles löschen, was in keiner Liste ist…</translation>
    </message>
    <message>
        <source>Turn Off History…</source>
        <translation>Verlauf ausschalten…</translation>
    </message>
    <message>
        <source>History Settings…</source>
        <translation>Verlaufseinstellungen…</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Delete List</source>
        <translation>Liste löschen</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryStrip</name>
    <message>
        <source>Recent Captures</source>
        <translation>Letzte Aufnahmen</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Nichts gefunden</translation>
    </message>
    <message>
        <source>Whatever you capture is kept here.</source>
        <translation>Alle Aufnahmen werden hier aufbewahrt.</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryWindow</name>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Application</source>
        <translation>Anwendung</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Recent Captures</source>
        <translation>Letzte Aufnahmen</translation>
    </message>
    <message>
        <source>Nothing Found</source>
        <translation>Nichts gefunden</translation>
    </message>
    <message>
        <source>Applications, file names, kinds and the words in captures are searched. Try fewer or shorter words.</source>
        <translation>Durchsucht werden Anwendungen, Dateinamen, Arten und die Wörter in Aufnahmen. Weniger oder kürzere Wörter helfen vielleicht.</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation>Suche leeren</translation>
    </message>
    <message>
        <source>An Empty List</source>
        <translation>Eine leere Liste</translation>
    </message>
    <message>
        <source>Drag captures here to keep them, whatever else is deleted.</source>
        <translation>Aufnahmen hierher ziehen, um sie zu behalten, was auch immer sonst gelöscht wird.</translation>
    </message>
    <message>
        <source>History Is Off</source>
        <translation>Verlauf ist ausgeschaltet</translation>
    </message>
    <message>
        <source>New captures are not kept here.</source>
        <translation>Neue Aufnahmen werden hier nicht aufbewahrt.</translation>
    </message>
    <message>
        <source>Turn On History</source>
        <translation>Verlauf einschalten</translation>
    </message>
    <message>
        <source>No Captures Yet</source>
        <translation>Noch keine Aufnahmen</translation>
    </message>
    <message>
        <source>Whatever you capture is kept here, to be found again.</source>
        <translation>Alle Aufnahmen werden hier aufbewahrt und lassen sich wiederfinden.</translation>
    </message>
    <message>
        <source>Press %1 to capture an area. Whatever you capture is kept here, to be found again.</source>
        <translation>Mit %1 einen Bereich aufnehmen. Alle Aufnahmen werden hier aufbewahrt und lassen sich wiederfinden.</translation>
    </message>
    <message numerus="yes">
        <source>%n captures selected</source>
        <translation>
            <numerusform>%n Aufnahme ausgewählt</numerusform>
            <numerusform>%n Aufnahmen ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Delete the list “%1”?</source>
        <translation>Die Liste „%1“ löschen?</translation>
    </message>
    <message>
        <source>Its captures are in the timeline again, which keeps the newest only.</source>
        <translation>Ihre Aufnahmen sind wieder in der Zeitleiste, die nur die neuesten behält.</translation>
    </message>
    <message>
        <source>Delete all captures that are in no list?</source>
        <translation>Alle Aufnahmen löschen, die in keiner Liste sind?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Turn Off</source>
        <translation>Ausschalten</translation>
    </message>
    <message numerus="yes">
        <source>%n captures deleted</source>
        <translation>
            <numerusform>%n Aufnahme gelöscht</numerusform>
            <numerusform>%n Aufnahmen gelöscht</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Kovrel::HomeWindow</name>
    <message>
        <source>Kovrel was updated to version %1.</source>
        <translation>Kovrel wurde auf Version %1 aktualisiert.</translation>
    </message>
    <message>
        <source>Welcome to Kovrel</source>
        <translation>Willkommen bei Kovrel</translation>
    </message>
    <message>
        <source>Capture from here, from the tray or from the command line.</source>
        <translation>Aufnehmen von hier, aus dem Infobereich oder über die Befehlszeile.</translation>
    </message>
    <message>
        <source>Captures, kept and found again. Everything stays on this computer.</source>
        <translation>Aufnahmen, aufbewahrt und wiedergefunden. Alles bleibt auf diesem Computer.</translation>
    </message>
    <message>
        <source>Use Kovrel on This Computer</source>
        <translation>Kovrel auf diesem Computer verwenden</translation>
    </message>
    <message>
        <source>Sign Out…</source>
        <translation>Abmelden…</translation>
    </message>
    <message>
        <source>Kovrel %1 is available from your package manager.</source>
        <translation>Kovrel %1 ist in der Paketverwaltung verfügbar.</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Signed in with the account on this computer</source>
        <translation>Angemeldet mit dem Konto auf diesem Computer</translation>
    </message>
    <message>
        <source>Signed in with your account on the web</source>
        <translation>Angemeldet mit dem Konto im Web</translation>
    </message>
    <message>
        <source>Sign out of Kovrel?</source>
        <translation>Von Kovrel abmelden?</translation>
    </message>
    <message>
        <source>Nothing can be captured until somebody signs in again. Captures and settings stay where they are.</source>
        <translation>Bis zur nächsten Anmeldung kann nichts aufgenommen werden. Aufnahmen und Einstellungen bleiben, wo sie sind.</translation>
    </message>
    <message>
        <source>Sign Out</source>
        <translation>Abmelden</translation>
    </message>
</context>
<context>
    <name>Kovrel::HotkeyButton</name>
    <message>
        <source>None</source>
        <translation>Keines</translation>
    </message>
    <message>
        <source>The keyboard is in use</source>
        <translation>Die Tastatur ist belegt</translation>
    </message>
    <message>
        <source>Add Ctrl, Alt or Super</source>
        <translation>Strg, Alt oder Super dazu</translation>
    </message>
    <message>
        <source>Type a shortcut…</source>
        <translation>Tastenkürzel drücken…</translation>
    </message>
    <message>
        <source>Type a shortcut. Backspace clears it, Escape leaves it.</source>
        <translation>Tastenkürzel drücken. Die Rücktaste löscht es, Esc lässt es unverändert.</translation>
    </message>
</context>
<context>
    <name>Kovrel::HotkeysFeature</name>
    <message>
        <source>%1 belongs to “%2” already</source>
        <translation>%1 ist bereits mit „%2“ belegt</translation>
    </message>
    <message>
        <source>%1 belongs to another program; it is tried again when that lets it go</source>
        <translation>%1 gehört einem anderen Programm; nach der Freigabe folgt ein neuer Versuch</translation>
    </message>
    <message>
        <source>Another program has %1</source>
        <translation>Ein anderes Programm belegt %1</translation>
    </message>
    <message>
        <source>It is tried again when that lets it go.</source>
        <translation>Nach der Freigabe folgt ein neuer Versuch.</translation>
    </message>
</context>
<context>
    <name>Kovrel::HotkeysPage</name>
    <message>
        <source>Capture from anywhere</source>
        <translation>Von überall aufnehmen</translation>
    </message>
    <message>
        <source>These keys work in every program, also while a menu is open.</source>
        <translation>Diese Tasten wirken in jedem Programm, auch bei offenem Menü.</translation>
    </message>
    <message>
        <source>Change Keys…</source>
        <translation>Tasten ändern…</translation>
    </message>
    <message>
        <source>Your desktop takes its own screenshots with %1. Kovrel borrows these keys while it runs, and gives them back when it ends.</source>
        <translation>Die Arbeitsumgebung macht mit %1 eigene Bildschirmfotos. Kovrel leiht sich diese Tasten, solange es läuft, und gibt sie danach zurück.</translation>
    </message>
</context>
<context>
    <name>Kovrel::LanguagesField</name>
    <message>
        <source>No language is installed, so no text can be read.</source>
        <translation>Es ist keine Sprache installiert, daher kann kein Text gelesen werden.</translation>
    </message>
    <message>
        <source>%1 is not installed: Debian&apos;s package %2 brings it.</source>
        <translation>%1 ist nicht installiert: Das Debian-Paket %2 enthält diese Sprache.</translation>
    </message>
</context>
<context>
    <name>Kovrel::LightPad</name>
    <message>
        <source>Light</source>
        <translation>Licht</translation>
    </message>
    <message>
        <source>Where the light comes from</source>
        <translation>Woher das Licht kommt</translation>
    </message>
    <message>
        <source>from %1 % right, %2 % above</source>
        <translation>von %1 % rechts, %2 % oben</translation>
    </message>
</context>
<context>
    <name>Kovrel::ListsModel</name>
    <message numerus="yes">
        <source>%n captures</source>
        <translation>
            <numerusform>%n Aufnahme</numerusform>
            <numerusform>%n Aufnahmen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Kovrel::LiveTextLayer</name>
    <message>
        <source>Text in the picture</source>
        <translation>Text im Bild</translation>
    </message>
    <message>
        <source>Open %1</source>
        <translation>%1 öffnen</translation>
    </message>
    <message>
        <source>Copy Text of the Code</source>
        <translation>Text des Codes kopieren</translation>
    </message>
    <message>
        <source>Copy Address</source>
        <translation>Adresse kopieren</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Text in pictures can be selected</source>
        <translation>Text in Bildern lässt sich auswählen</translation>
    </message>
</context>
<context>
    <name>Kovrel::PermissionWindow</name>
    <message>
        <source>Check Again</source>
        <translation>Erneut prüfen</translation>
    </message>
    <message>
        <source>Kovrel can&apos;t capture here</source>
        <translation>Kovrel kann hier nicht aufnehmen</translation>
    </message>
    <message>
        <source>Capturing is still not possible.</source>
        <translation>Aufnehmen ist noch immer nicht möglich.</translation>
    </message>
</context>
<context>
    <name>Kovrel::PinController</name>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>There is no display to pin to</source>
        <translation>Es gibt keinen Bildschirm zum Anheften</translation>
    </message>
</context>
<context>
    <name>Kovrel::PinMenu</name>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Copy Image</source>
        <translation>Bild kopieren</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Actual Size</source>
        <translation>Originalgröße</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>Lösen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Kovrel::PinPanel</name>
    <message>
        <source>Pinned capture</source>
        <translation>Angeheftete Aufnahme</translation>
    </message>
</context>
<context>
    <name>Kovrel::PreviewPicture</name>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
</context>
<context>
    <name>Kovrel::PreviewWindows</name>
    <message>
        <source>Text copied</source>
        <translation>Text kopiert</translation>
    </message>
</context>
<context>
    <name>Kovrel::ProgressDots</name>
    <message>
        <source>Step %1 of %2</source>
        <translation>Schritt %1 von %2</translation>
    </message>
</context>
<context>
    <name>Kovrel::SavingPage</name>
    <message>
        <source>After Each Capture</source>
        <translation>Nach jeder Aufnahme</translation>
    </message>
    <message>
        <source>Show a card</source>
        <translation>Karte anzeigen</translation>
    </message>
    <message>
        <source>preview thumbnail</source>
        <translation>vorschau miniatur vorschaubild</translation>
    </message>
    <message>
        <source>Copy it to the clipboard</source>
        <translation>In die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>paste</source>
        <translation>einfügen</translation>
    </message>
    <message>
        <source>Save it to the folder of captures</source>
        <translation>Im Aufnahmeordner speichern</translation>
    </message>
    <message>
        <source>file disk automatically</source>
        <translation>datei festplatte automatisch</translation>
    </message>
    <message>
        <source>Open it in the editor</source>
        <translation>Im Editor öffnen</translation>
    </message>
    <message>
        <source>annotate mark</source>
        <translation>anmerken markieren beschriften</translation>
    </message>
    <message>
        <source>Pin it to the screen</source>
        <translation>An Bildschirm anheften</translation>
    </message>
    <message>
        <source>float above</source>
        <translation>schweben im vordergrund</translation>
    </message>
    <message>
        <source>A capture with which nothing of that can be done is saved in any case.</source>
        <translation>Eine Aufnahme, mit der nichts davon möglich ist, wird in jedem Fall gespeichert.</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>This folder is not there. Until it is, captures are kept in %1.</source>
        <translation>Dieser Ordner ist nicht vorhanden. Bis es ihn gibt, werden Aufnahmen in %1 aufbewahrt.</translation>
    </message>
    <message>
        <source>Kovrel can&apos;t write to this folder. Captures are kept in %1 instead.</source>
        <translation>Kovrel kann nicht in diesen Ordner schreiben. Aufnahmen werden stattdessen in %1 aufbewahrt.</translation>
    </message>
    <message>
        <source>Save captures to</source>
        <translation>Aufnahmen speichern in</translation>
    </message>
    <message>
        <source>location directory destination path where</source>
        <translation>speicherort ordner verzeichnis ziel pfad wohin</translation>
    </message>
    <message>
        <source>Filename template</source>
        <translation>Dateinamenvorlage</translation>
    </message>
    <message>
        <source>%Y year, %m month, %d day, %H hour, %M minute, %S second</source>
        <translation>%Y Jahr, %m Monat, %d Tag, %H Stunde, %M Minute, %S Sekunde</translation>
    </message>
    <message>
        <source>name pattern date time</source>
        <translation>name muster datum zeit</translation>
    </message>
    <message>
        <source>This name is too long for a file and is cut off.</source>
        <translation>Dieser Name ist zu lang für eine Datei und wird gekürzt.</translation>
    </message>
    <message>
        <source>Example: %1</source>
        <translation>Beispiel: %1</translation>
    </message>
    <message>
        <source>“%1” can&apos;t be part of a name and becomes a hyphen. %2</source>
        <translation>„%1“ darf in einem Namen nicht vorkommen und wird zum Bindestrich. %2</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Choose the format automatically</source>
        <translation>Format automatisch wählen</translation>
    </message>
    <message>
        <source>Auto saves JPEG for large opaque screenshots and PNG when there&apos;s transparency or fine UI detail.</source>
        <translation>Große, deckende Aufnahmen werden als JPEG gespeichert, solche mit Transparenz oder feinen Details der Oberfläche als PNG.</translation>
    </message>
    <message>
        <source>auto type file png jpeg</source>
        <translation>auto typ datei png jpeg</translation>
    </message>
    <message>
        <source>Quality of JPEG and HEIC</source>
        <translation>Qualität von JPEG und HEIC</translation>
    </message>
    <message>
        <source>Less makes smaller files.</source>
        <translation>Weniger ergibt kleinere Dateien.</translation>
    </message>
    <message>
        <source>compression size lossy</source>
        <translation>komprimierung größe verlustbehaftet</translation>
    </message>
    <message>
        <source>Resize high-density screenshots</source>
        <translation>Hochauflösende Aufnahmen verkleinern</translation>
    </message>
    <message>
        <source>One pixel of the file for each point of the screen.</source>
        <translation>Ein Pixel der Datei für jeden Punkt des Bildschirms.</translation>
    </message>
    <message>
        <source>retina hidpi scale downscale smaller 1x</source>
        <translation>retina hidpi skalieren verkleinern kleiner 1x</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>PNG</source>
        <translation>PNG</translation>
    </message>
    <message>
        <source>JPEG</source>
        <translation>JPEG</translation>
    </message>
    <message>
        <source>HEIC</source>
        <translation>HEIC</translation>
    </message>
    <message>
        <source>TIFF</source>
        <translation>TIFF</translation>
    </message>
    <message>
        <source>type file jpg heif tif picture image</source>
        <translation>typ datei jpg heif tif bild</translation>
    </message>
</context>
<context>
    <name>Kovrel::SelfTimer</name>
    <message>
        <source>Capturing in %1…</source>
        <translation>Aufnahme in %1…</translation>
    </message>
</context>
<context>
    <name>Kovrel::SettingRowView</name>
    <message>
        <source>Reset “%1”</source>
        <translation>„%1“ zurücksetzen</translation>
    </message>
</context>
<context>
    <name>Kovrel::SettingsFeature</name>
    <message>
        <source>Kovrel settings</source>
        <translation>Kovrel-Einstellungen</translation>
    </message>
    <message>
        <source>The settings were exported to %1.</source>
        <translation>Die Einstellungen wurden nach %1 exportiert.</translation>
    </message>
    <message>
        <source>The settings could not be exported: %1</source>
        <translation>Die Einstellungen konnten nicht exportiert werden: %1</translation>
    </message>
    <message>
        <source>Settings (*.json)</source>
        <translation>Einstellungen (*.json)</translation>
    </message>
    <message>
        <source>Nothing was imported: %1</source>
        <translation>Nichts wurde importiert: %1</translation>
    </message>
    <message>
        <source>The settings were imported.</source>
        <translation>Die Einstellungen wurden importiert.</translation>
    </message>
    <message>
        <source>The settings were imported, but for what this version does not know: %1</source>
        <translation>Die Einstellungen wurden importiert, bis auf das, was diese Version nicht kennt: %1</translation>
    </message>
</context>
<context>
    <name>Kovrel::SettingsPageView</name>
    <message>
        <source>Reset This Page</source>
        <translation>Diese Seite zurücksetzen</translation>
    </message>
</context>
<context>
    <name>Kovrel::SettingsSidebar</name>
    <message>
        <source>Search settings</source>
        <translation>Einstellungen durchsuchen</translation>
    </message>
</context>
<context>
    <name>Kovrel::SettingsTabs</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Capture</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>After Capture</source>
        <translation>Nach der Aufnahme</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Text Recognition</source>
        <translation>Texterkennung</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Töne</translation>
    </message>
</context>
<context>
    <name>Kovrel::SettingsTransfer</name>
    <message>
        <source>This file of settings is damaged or cut off.</source>
        <translation>Diese Einstellungsdatei ist beschädigt oder abgeschnitten.</translation>
    </message>
    <message>
        <source>This is no file of Kovrel&apos;s settings.</source>
        <translation>Dies ist keine Einstellungsdatei von Kovrel.</translation>
    </message>
    <message>
        <source>This file of settings is from another version of Kovrel.</source>
        <translation>Diese Einstellungsdatei stammt von einer anderen Version von Kovrel.</translation>
    </message>
    <message>
        <source>The value of “%1” in this file makes no sense.</source>
        <translation>Der Wert von „%1“ in dieser Datei ergibt keinen Sinn.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read.</source>
        <translation>%1 kann nicht gelesen werden.</translation>
    </message>
</context>
<context>
    <name>Kovrel::SettingsWindow</name>
    <message>
        <source>Kovrel Settings</source>
        <translation>Kovrel-Einstellungen</translation>
    </message>
    <message>
        <source>No setting is called “%1”.</source>
        <translation>Keine Einstellung heißt „%1“.</translation>
    </message>
    <message>
        <source>Changes hold only until Kovrel quits: %1</source>
        <translation>Änderungen gelten nur, bis Kovrel beendet wird: %1</translation>
    </message>
</context>
<context>
    <name>Kovrel::ShortcutsPage</name>
    <message>
        <source>From Anywhere</source>
        <translation>Überall wirksam</translation>
    </message>
    <message>
        <source>Click a shortcut and type the new one. Backspace clears it, Escape leaves it.</source>
        <translation>Ein Tastenkürzel anklicken und das neue drücken. Die Rücktaste löscht es, Esc lässt es unverändert.</translation>
    </message>
    <message>
        <source>The Desktop&apos;s Own</source>
        <translation>Tastenkürzel des Desktops</translation>
    </message>
    <message>
        <source>hotkey keyboard keys shortcut combination</source>
        <translation>hotkey tastatur tasten tastenkürzel tastenkombination</translation>
    </message>
    <message>
        <source>Kovrel borrows them while it runs. Giving them back clears Kovrel&apos;s own.</source>
        <translation>Kovrel leiht sie sich aus, solange es läuft. Beim Zurückgeben werden die eigenen von Kovrel gelöscht.</translation>
    </message>
    <message>
        <source>This desktop&apos;s screenshot shortcuts can&apos;t be switched off from here. Where it answers Super+Shift+3, 4 or 5 itself, turn that off in its own settings.</source>
        <translation>Die Bildschirmfoto-Tastenkürzel dieses Desktops lassen sich hier nicht abschalten. Reagiert er selbst auf Super+Umschalt+3, 4 oder 5, lässt sich das in seinen eigenen Einstellungen ausschalten.</translation>
    </message>
    <message>
        <source>Screenshot shortcuts of the desktop</source>
        <translation>Bildschirmfoto-Tastenkürzel des Desktops</translation>
    </message>
    <message>
        <source>Give Back</source>
        <translation>Zurückgeben</translation>
    </message>
    <message>
        <source>system gnome kde plasma print conflict</source>
        <translation>system gnome kde plasma druck konflikt</translation>
    </message>
    <message>
        <source>Borrowed now: %1</source>
        <translation>Derzeit ausgeliehen: %1</translation>
    </message>
</context>
<context>
    <name>Kovrel::SoundsPage</name>
    <message>
        <source>Captures and Messages</source>
        <translation>Aufnahmen und Meldungen</translation>
    </message>
    <message>
        <source>Sound of captures</source>
        <translation>Ton bei Aufnahmen</translation>
    </message>
    <message>
        <source>Pop</source>
        <translation>Plopp</translation>
    </message>
    <message>
        <source>Camera shutter</source>
        <translation>Kameraverschluss</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>shutter audio noise mute silent</source>
        <translation>auslöser audio geräusch stumm lautlos</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Sound of messages</source>
        <translation>Ton bei Meldungen</translation>
    </message>
    <message>
        <source>toast notification audio mute silent</source>
        <translation>hinweis benachrichtigung audio stumm lautlos</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>loud quiet audio mute silent</source>
        <translation>laut leise audio stumm lautlos</translation>
    </message>
</context>
<context>
    <name>Kovrel::StylePanel</name>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>Kontur</translation>
    </message>
    <message>
        <source>Translucent</source>
        <translation>Durchscheinend</translation>
    </message>
    <message>
        <source>Hatched</source>
        <translation>Schraffiert</translation>
    </message>
    <message>
        <source>Filled</source>
        <translation>Gefüllt</translation>
    </message>
    <message>
        <source>Plain</source>
        <translation>Schlicht</translation>
    </message>
    <message>
        <source>Outlined</source>
        <translation>Mit Kontur</translation>
    </message>
    <message>
        <source>On a Plate</source>
        <translation>Hinterlegt</translation>
    </message>
    <message>
        <source>Speech Bubble</source>
        <translation>Sprechblase</translation>
    </message>
    <message>
        <source>Rounded Corners</source>
        <translation>Abgerundete Ecken</translation>
    </message>
    <message>
        <source>Darkness</source>
        <translation>Abdunklung</translation>
    </message>
    <message>
        <source>Arrow Head</source>
        <translation>Pfeilspitze</translation>
    </message>
</context>
<context>
    <name>Kovrel::TextCapture</name>
    <message>
        <source>No text found in the capture</source>
        <translation>Kein Text in der Aufnahme gefunden</translation>
    </message>
    <message>
        <source>The text can&apos;t be read</source>
        <translation>Text ist nicht lesbar</translation>
    </message>
    <message>
        <source>Text and QR code copied</source>
        <translation>Text und QR-Code kopiert</translation>
    </message>
    <message>
        <source>Extracting text…</source>
        <translation>Text wird extrahiert…</translation>
    </message>
</context>
<context>
    <name>Kovrel::TextPage</name>
    <message>
        <source>Languages of the text in captures</source>
        <translation>Sprachen des Textes in Aufnahmen</translation>
    </message>
    <message>
        <source>With none of them chosen, text is read in the languages of the desktop.</source>
        <translation>Ist keine davon gewählt, wird Text in den Sprachen des Desktops gelesen.</translation>
    </message>
    <message>
        <source>ocr recognition read tesseract language</source>
        <translation>ocr erkennung lesen tesseract sprache</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>Sprachen</translation>
    </message>
    <message>
        <source>Debian&apos;s packages tesseract-ocr-… bring more languages, as tesseract-ocr-fra for French. Each language that is chosen makes reading slower.</source>
        <translation>Weitere Sprachen gibt es in den Debian-Paketen tesseract-ocr-…, etwa tesseract-ocr-fra für Französisch. Jede gewählte Sprache verlangsamt das Lesen.</translation>
    </message>
</context>
<context>
    <name>Kovrel::ToolPalette</name>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Pfeil</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Linie</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>Stift</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>Textmarker</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Filled Rectangle</source>
        <translation>Gefülltes Rechteck</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>Schritt</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Weichzeichnen</translation>
    </message>
    <message>
        <source>Pixelate</source>
        <translation>Verpixeln</translation>
    </message>
    <message>
        <source>Black Out</source>
        <translation>Schwärzen</translation>
    </message>
    <message>
        <source>Spotlight</source>
        <translation>Spotlight</translation>
    </message>
    <message>
        <source>Measure</source>
        <translation>Messen</translation>
    </message>
</context>
<context>
    <name>Kovrel::TrayMenu</name>
    <message>
        <source>Cancel Countdown</source>
        <translation>Countdown abbrechen</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Open Kovrel…</source>
        <translation>Kovrel öffnen…</translation>
    </message>
    <message>
        <source>Quit Kovrel</source>
        <translation>Kovrel beenden</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>Show Cards</source>
        <translation>Karten anzeigen</translation>
    </message>
    <message>
        <source>Temporarily Hide Cards</source>
        <translation>Karten vorübergehend ausblenden</translation>
    </message>
</context>
<context>
    <name>Kovrel::TryOutPage</name>
    <message>
        <source>There it is</source>
        <translation>Da ist sie</translation>
    </message>
    <message>
        <source>Point at the card in the corner: copy, save, edit or pin the capture from there, or drag it into any program. It waits while you look.</source>
        <translation>Auf die Karte in der Ecke zeigen: Von dort lässt sich die Aufnahme kopieren, speichern, bearbeiten, anheften oder in ein Programm ziehen. Sie wartet so lange.</translation>
    </message>
    <message>
        <source>Your capture went where the settings send it, and into Recent Captures.</source>
        <translation>Die Aufnahme ist dort, wohin die Einstellungen sie schicken, und unter „Letzte Aufnahmen“.</translation>
    </message>
    <message>
        <source>Try it now</source>
        <translation>Jetzt ausprobieren</translation>
    </message>
    <message>
        <source>This window steps aside. Drag a rectangle around anything; Escape lets it be.</source>
        <translation>Dieses Fenster macht Platz. Ein Rechteck um etwas ziehen; Esc bricht ab.</translation>
    </message>
    <message>
        <source>Press %1, or the button below. This window steps aside; drag a rectangle around anything. Escape lets it be.</source>
        <translation>%1 drücken oder die Schaltfläche unten. Dieses Fenster macht Platz; ein Rechteck um etwas ziehen. Esc bricht ab.</translation>
    </message>
</context>
<context>
    <name>Kovrel::UndoBar</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
</context>
<context>
    <name>Kovrel::UpdatesPage</name>
    <message>
        <source>Kovrel %1 is available from your package manager.</source>
        <translation>Kovrel %1 ist in der Paketverwaltung verfügbar.</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Aktualisierungen</translation>
    </message>
    <message>
        <source>Tell me of newer versions</source>
        <translation>Neuere Versionen melden</translation>
    </message>
    <message>
        <source>Once a day Kovrel asks the package manager; it installs nothing.</source>
        <translation>Einmal am Tag fragt Kovrel die Paketverwaltung; es installiert nichts.</translation>
    </message>
    <message>
        <source>upgrade new release version check</source>
        <translation>aktualisierung update neue version prüfen</translation>
    </message>
</context>
<context>
    <name>MeasureSession</name>
    <message>
        <source>Tolerance %1</source>
        <translation>Toleranz %1</translation>
    </message>
    <message>
        <source>Drag for a rectangle  ·  Click to copy  ·  Wheel for tolerance  ·  U for the unit  ·  Esc to end</source>
        <translation>Ziehen: Rechteck  ·  Klick: kopieren  ·  Mausrad: Toleranz  ·  U: Einheit  ·  Esc: beenden</translation>
    </message>
</context>
<context>
    <name>PatientRecogniser</name>
    <message>
        <source>The recognition of the text came to a standstill and was given up.</source>
        <translation>Die Texterkennung kam nicht mehr voran und wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>PickingFeature</name>
    <message>
        <source>Colour copied</source>
        <translation>Farbe kopiert</translation>
    </message>
    <message>
        <source>Size copied</source>
        <translation>Größe kopiert</translation>
    </message>
    <message>
        <source>No colour can be picked</source>
        <translation>Keine Farbe aufgenommen</translation>
    </message>
    <message>
        <source>The screen can&apos;t be measured</source>
        <translation>Messen ist nicht möglich</translation>
    </message>
</context>
<context>
    <name>PicturePrinter</name>
    <message>
        <source>The printer takes no page.</source>
        <translation>Der Drucker nimmt keine Seite an.</translation>
    </message>
</context>
<context>
    <name>Plugins</name>
    <message>
        <source>The part %1 of Kovrel cannot be used: %2</source>
        <translation>Der Bestandteil %1 von Kovrel kann nicht verwendet werden: %2</translation>
    </message>
    <message>
        <source>The part %1 of Kovrel is not installed.</source>
        <translation>Der Bestandteil %1 von Kovrel ist nicht installiert.</translation>
    </message>
</context>
<context>
    <name>PreviewDuration</name>
    <message>
        <source>A preview closes on its own once this runs out. Hovering one holds its countdown, and %1 brings back the last one that closed.</source>
        <translation>Eine Karte schließt sich von selbst, sobald diese Zeit abgelaufen ist. Solange der Mauszeiger darüber steht, hält der Countdown an, und %1 holt die zuletzt geschlossene zurück.</translation>
    </message>
    <message>
        <source>Close after %1 seconds</source>
        <translation>Nach %1 Sekunden schließen</translation>
    </message>
    <message>
        <source>Keep previews until I close them</source>
        <translation>Karten behalten, bis sie geschlossen werden</translation>
    </message>
</context>
<context>
    <name>QRCodeDetector</name>
    <message>
        <source>There is not enough memory to look for codes.</source>
        <translation>Der Arbeitsspeicher reicht nicht aus, um nach Codes zu suchen.</translation>
    </message>
</context>
<context>
    <name>QRToast</name>
    <message>
        <source>QR code copied</source>
        <translation>QR-Code kopiert</translation>
    </message>
    <message>
        <source>%1 QR codes copied</source>
        <translation>%1 QR-Codes kopiert</translation>
    </message>
    <message>
        <source>%1  (+%2 more)</source>
        <translation>%1  (+%2 weitere)</translation>
    </message>
</context>
<context>
    <name>SaveFailureToast</name>
    <message>
        <source>The capture could not be saved</source>
        <translation>Aufnahme nicht gespeichert</translation>
    </message>
</context>
<context>
    <name>SaveService</name>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The folder %1 has no name left for %2.</source>
        <translation>Im Ordner %1 ist kein Name für %2 mehr frei.</translation>
    </message>
    <message>
        <source>%1 is not there any more.</source>
        <translation>%1 ist nicht mehr vorhanden.</translation>
    </message>
    <message>
        <source>%1 should end in .png, .jpeg, .heic or .tiff.</source>
        <translation>%1 muss auf .png, .jpeg, .heic oder .tiff enden.</translation>
    </message>
</context>
<context>
    <name>SelectionScene</name>
    <message>
        <source>Click a window to capture it  ·  Space to drag instead  ·  Esc to cancel</source>
        <translation>Fenster zum Aufnehmen anklicken  ·  Leertaste: stattdessen ziehen  ·  Esc: abbrechen</translation>
    </message>
    <message>
        <source>Drag to select an area  ·  Space for a window  ·  Esc to cancel</source>
        <translation>Zum Auswählen eines Bereichs ziehen  ·  Leertaste: Fenster  ·  Esc: abbrechen</translation>
    </message>
</context>
<context>
    <name>TesseractEngine</name>
    <message>
        <source>The language data for text recognition (%1) in %2 can&apos;t be used.</source>
        <translation>Die Sprachdaten für die Texterkennung (%1) in %2 können nicht verwendet werden.</translation>
    </message>
</context>
<context>
    <name>TesseractRecogniser</name>
    <message>
        <source>Install the package tesseract-ocr-eng, or that of another language: there is no language data for text recognition.</source>
        <translation>Das Paket tesseract-ocr-eng oder das einer anderen Sprache installieren: Es gibt keine Sprachdaten für die Texterkennung.</translation>
    </message>
    <message>
        <source>There is no picture to read.</source>
        <translation>Es gibt kein Bild zum Lesen.</translation>
    </message>
</context>
<context>
    <name>Toasts</name>
    <message>
        <source>Saved to %1</source>
        <translation>Gespeichert in %1</translation>
    </message>
</context>
</TS>
