<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>panewright</name>
    <message>
        <source>Save Current Window…</source>
        <translation>Aktuelles Fenster sichern …</translation>
    </message>
    <message>
        <source>Move to Next Display</source>
        <translation>Auf nächsten Bildschirm bewegen</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>Start at Login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Restore Built-in States</source>
        <translation>Eingebaute Zustände wiederherstellen</translation>
    </message>
    <message>
        <source>Crash</source>
        <translation>Absturz</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Updates suchen …</translation>
    </message>
    <message>
        <source>Send Feedback…</source>
        <translation>Rückmeldung senden …</translation>
    </message>
    <message>
        <source>FAQ</source>
        <translation>Häufige Fragen</translation>
    </message>
    <message>
        <source>Version: %@.%@</source>
        <translation>Version: %@.%@</translation>
    </message>
    <message>
        <source>Quit Panewright</source>
        <translation>Panewright beenden</translation>
    </message>
    <message>
        <source>All saved window states</source>
        <translation>Alle gesicherten Fensterzustände</translation>
    </message>
    <message>
        <source>Option-Click to edit a shortcut</source>
        <translation>Mit Wahltaste klicken, um zu bearbeiten</translation>
    </message>
    <message>
        <source>Option is the %@ key. Option-Shift-Click deletes.</source>
        <translation>Die Wahltaste ist %@. Ein Klick mit Wahl- und Umschalttaste löscht.</translation>
    </message>
    <message>
        <source>%1 (in use elsewhere)</source>
        <translation>%1 (anderswo belegt)</translation>
    </message>
    <message>
        <source>Save Window State</source>
        <translation>Fensterzustand sichern</translation>
    </message>
    <message>
        <source>Edit Window State</source>
        <translation>Fensterzustand bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Name of the window state</source>
        <translation>Name des Fensterzustands</translation>
    </message>
    <message>
        <source>Left half, for example</source>
        <translation>Linke Hälfte, zum Beispiel</translation>
    </message>
    <message>
        <source>Shor&amp;tcut:</source>
        <translation>&amp;Kurzbefehl:</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Kurzbefehl</translation>
    </message>
    <message>
        <source>Click to record shortcut</source>
        <translation>Klicken zum Aufnehmen</translation>
    </message>
    <message>
        <source>Type shortcut</source>
        <translation>Tasten drücken</translation>
    </message>
    <message>
        <source>Only active for %@</source>
        <translation>Gilt nur in %@</translation>
    </message>
    <message>
        <source>Active for &amp;all applications</source>
        <translation>Gilt in &amp;allen Programmen</translation>
    </message>
    <message>
        <source>Active for all applications</source>
        <translation>Gilt in allen Programmen</translation>
    </message>
    <message>
        <source>Built in, active for all applications</source>
        <translation>Eingebaut, gilt in allen Programmen</translation>
    </message>
    <message>
        <source>The keyboard shortcut will only be active while %@ is active.</source>
        <translation>Der Kurzbefehl wirkt nur, während %@ aktiv ist.</translation>
    </message>
    <message>
        <source>The keyboard shortcut will be active for all applications.</source>
        <translation>Der Kurzbefehl wirkt in allen Programmen.</translation>
    </message>
    <message>
        <source>&amp;Prefer the display it is on now</source>
        <translation>Seinen jetzigen &amp;Bildschirm bevorzugen</translation>
    </message>
    <message>
        <source>Also with other displays connected, the window goes to one of this size.</source>
        <translation>Auch wenn andere Bildschirme angeschlossen sind, kommt das Fenster auf einen dieser Größe.</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>Abbre&amp;chen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Sichern</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Asks first, unless Shift is held.</source>
        <translation>Fragt vorher, außer mit gedrückter Umschalttaste.</translation>
    </message>
    <message>
        <source>&amp;Replace its frame by the current window's</source>
        <translation>&amp;Rahmen durch den des aktuellen Fensters ersetzen</translation>
    </message>
    <message>
        <source>The frame that the window in front had when this was opened.</source>
        <translation>Der Rahmen, den das vorderste Fenster beim Öffnen dieses Fensters hatte.</translation>
    </message>
    <message>
        <source>The frame of a built-in state follows from the display.</source>
        <translation>Der Rahmen eines eingebauten Zustands ergibt sich aus dem Bildschirm.</translation>
    </message>
    <message>
        <source>Are you sure you want to delete this window state?</source>
        <translation>Möchten Sie diesen Fensterzustand wirklich löschen?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Another program uses this shortcut.</source>
        <translation>Ein anderes Programm verwendet diesen Kurzbefehl.</translation>
    </message>
    <message>
        <source>Also used by %@.</source>
        <translation>Auch verwendet von %@.</translation>
    </message>
    <message>
        <source>This key cannot be a shortcut.</source>
        <translation>Diese Taste kann kein Kurzbefehl sein.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Save Current Window…</source>
        <translation>&amp;Aktuelles Fenster sichern …</translation>
    </message>
    <message>
        <source>Open Men&amp;u</source>
        <translation>&amp;Menü öffnen</translation>
    </message>
    <message>
        <source>&amp;Move window to next display:</source>
        <translation>Fenster auf nächsten &amp;Bildschirm bewegen:</translation>
    </message>
    <message>
        <source>Shortcut that moves the window to the next display</source>
        <translation>Kurzbefehl, der das Fenster auf den nächsten Bildschirm bewegt</translation>
    </message>
    <message>
        <source>A shortcut &amp;pressed again moves the window to the next display</source>
        <translation>Ein &amp;nochmals gedrückter Kurzbefehl bewegt das Fenster auf den nächsten Bildschirm</translation>
    </message>
    <message>
        <source>Start at &amp;login</source>
        <translation>Bei der Anme&amp;ldung starten</translation>
    </message>
    <message>
        <source>&amp;Restore Built-in States</source>
        <translation>&amp;Eingebaute Zustände wiederherstellen</translation>
    </message>
    <message>
        <source>Puts the four built-in states back as they were at first. Your own states stay.</source>
        <translation>Stellt die vier eingebauten Zustände so her, wie sie anfangs waren. Ihre eigenen Zustände bleiben.</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Feedback</source>
        <translation>Rückmeldung</translation>
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
    <message>
        <source>The saved states could not be read…</source>
        <translation>Die gesicherten Zustände konnten nicht gelesen werden …</translation>
    </message>
    <message>
        <source>The saved states could not be written…</source>
        <translation>Die gesicherten Zustände konnten nicht geschrieben werden …</translation>
    </message>
    <message>
        <source>The saved states could not be read.</source>
        <translation>Die gesicherten Zustände konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The saved states could not be written.</source>
        <translation>Die gesicherten Zustände konnten nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The file %@ is damaged, or it is not from Panewright.</source>
        <translation>Die Datei %@ ist beschädigt, oder sie stammt nicht von Panewright.</translation>
    </message>
    <message>
        <source>Panewright may not read the file %@.</source>
        <translation>Panewright darf die Datei %@ nicht lesen.</translation>
    </message>
    <message>
        <source>The file %@ could not be read. The system says: %@</source>
        <translation>Die Datei %@ konnte nicht gelesen werden. Das System sagt: %@</translation>
    </message>
    <message>
        <source>The disk of the file %@ is full.</source>
        <translation>Der Datenträger der Datei %@ ist voll.</translation>
    </message>
    <message>
        <source>Panewright may not write the file %@.</source>
        <translation>Panewright darf die Datei %@ nicht schreiben.</translation>
    </message>
    <message>
        <source>Another Panewright works on the file %@.</source>
        <translation>Ein anderes Panewright arbeitet mit der Datei %@.</translation>
    </message>
    <message>
        <source>The states are too many for the file %@.</source>
        <translation>Es sind zu viele Zustände für die Datei %@.</translation>
    </message>
    <message>
        <source>The folder for them is missing and cannot be made.</source>
        <translation>Der Ordner dafür fehlt und lässt sich nicht anlegen.</translation>
    </message>
    <message>
        <source>The file %@ could not be written. The system says: %@</source>
        <translation>Die Datei %@ konnte nicht geschrieben werden. Das System sagt: %@</translation>
    </message>
    <message>
        <source>Nothing was changed. To start afresh, Panewright sets the file aside in its folder and begins with the built-in states.</source>
        <translation>Nichts wurde verändert. Um neu zu beginnen, legt Panewright die Datei in ihrem Ordner beiseite und fängt mit den eingebauten Zuständen an.</translation>
    </message>
    <message>
        <source>Start Afresh</source>
        <translation>Neu beginnen</translation>
    </message>
    <message>
        <source>Leave It</source>
        <translation>So lassen</translation>
    </message>
    <message>
        <source>All states are there as long as Panewright runs. It writes them with the next change, and when it ends.</source>
        <translation>Alle Zustände sind da, solange Panewright läuft. Es schreibt sie bei der nächsten Änderung und wenn es endet.</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Nochmals versuchen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Nothing can be saved: the saved states could not be read.</source>
        <translation>Es kann nichts gesichert werden: Die gesicherten Zustände konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabetaste</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
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
        <source>Insert</source>
        <translation>Einfg</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
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
        <source>Page Up</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Pfeil links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Pfeil rechts</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Pfeil hoch</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Pfeil runter</translation>
    </message>
    <message>
        <source>No shortcut</source>
        <translation>Kein Kurzbefehl</translation>
    </message>
    <message>
        <source>Recording: press the keys, or Escape to stop</source>
        <translation>Nimmt auf: Tasten drücken, Escape bricht ab</translation>
    </message>
    <message>
        <source>Records a shortcut</source>
        <translation>Nimmt einen Kurzbefehl auf</translation>
    </message>
    <message>
        <source>Stops recording</source>
        <translation>Beendet die Aufnahme</translation>
    </message>
    <message>
        <source>Clears the shortcut</source>
        <translation>Entfernt den Kurzbefehl</translation>
    </message>
    <message>
        <source>Opens the page</source>
        <translation>Öffnet die Seite</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Icon of the program</source>
        <translation>Symbol des Programms</translation>
    </message>
    <message>
        <source>Picture of the window on its display</source>
        <translation>Bild des Fensters auf seinem Bildschirm</translation>
    </message>
    <message>
        <source>Where the shortcut is active</source>
        <translation>Wo der Kurzbefehl gilt</translation>
    </message>
    <message>
        <source>Do not show this message again</source>
        <translation>Diese Meldung nicht mehr anzeigen</translation>
    </message>
    <message>
        <source>I can move myself to the Applications folder if you&apos;d like.</source>
        <translation>Ich kann mich selbst in den Ordner „Applications“ verschieben, wenn Sie möchten.</translation>
    </message>
    <message>
        <source>Note that this will require an administrator password.</source>
        <translation>Dafür wird das Passwort eines Administrators benötigt.</translation>
    </message>
    <message>
        <source>This will keep your Downloads folder uncluttered.</source>
        <translation>So bleibt Ihr Ordner für Downloads aufgeräumt.</translation>
    </message>
    <message>
        <source>Move to Applications folder?</source>
        <translation>In den Ordner „Applications“ verschieben?</translation>
    </message>
    <message>
        <source>Move to Applications Folder</source>
        <translation>In den Ordner „Applications“ verschieben</translation>
    </message>
    <message>
        <source>Do Not Move</source>
        <translation>Nicht verschieben</translation>
    </message>
    <message>
        <source>Could not move to Applications folder</source>
        <translation>Das Verschieben in den Ordner „Applications“ ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Panewright does not look for new versions by itself.</source>
        <translation>Panewright sucht nicht selbst nach neuen Versionen.</translation>
    </message>
    <message>
        <source>A new version comes the way this one did: with the packages of your system, or as a tarball.</source>
        <translation>Eine neue Version kommt auf demselben Weg wie diese: mit den Paketen Ihres Systems oder als Archiv.</translation>
    </message>
    <message>
        <source>Panewright %@ is there.</source>
        <translation>Panewright %@ ist da.</translation>
    </message>
    <message>
        <source>You have version %@.</source>
        <translation>Sie haben Version %@.</translation>
    </message>
    <message>
        <source>Show in Browser</source>
        <translation>Im Browser zeigen</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>You have the newest version of Panewright.</source>
        <translation>Sie haben die neueste Version von Panewright.</translation>
    </message>
    <message>
        <source>It is version %@.</source>
        <translation>Es ist Version %@.</translation>
    </message>
    <message>
        <source>New versions are looked for over HTTPS only, not at %@.</source>
        <translation>Neue Versionen werden nur über HTTPS gesucht, nicht unter %@.</translation>
    </message>
    <message>
        <source>What the server sent is no list of versions: %@</source>
        <translation>Was der Server geschickt hat, ist keine Liste von Versionen: %@</translation>
    </message>
    <message>
        <source>The list of versions could not be fetched: %@</source>
        <translation>Die Liste der Versionen war nicht zu bekommen: %@</translation>
    </message>
    <message>
        <source>Nobody knows whether there is a newer version.</source>
        <translation>Es ist nicht bekannt, ob es eine neuere Version gibt.</translation>
    </message>
</context>
</TS>
