<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>CandidateText</name>
    <message>
        <source>Unknown date</source>
        <translation>Datum unbekannt</translation>
    </message>
    <message>
        <source>selected</source>
        <translation>ausgewählt</translation>
    </message>
    <message>
        <source>not selected</source>
        <translation>nicht ausgewählt</translation>
    </message>
    <message>
        <source>details shown</source>
        <translation>Details eingeblendet</translation>
    </message>
    <message>
        <source>details hidden</source>
        <translation>Details ausgeblendet</translation>
    </message>
    <message>
        <source>Project: %1</source>
        <translation>Projekt: %1</translation>
    </message>
    <message>
        <source>How to regenerate: %1</source>
        <translation>So lässt es sich wiederherstellen: %1</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Usage: broomtide
Opens the window that finds disposable developer files and moves them to the Trash.

  -h, --help     print this and exit
  -v, --version  print the version and exit

Qt&apos;s own options, such as -platform, are understood too. broomtide-cli does the same in a
terminal.
</source>
        <translation>Aufruf: broomtide
Öffnet das Fenster, das entbehrliche Entwicklerdateien findet und in den Papierkorb verschiebt.

  -h, --help     diese Hilfe ausgeben und beenden
  -v, --version  die Version ausgeben und beenden

Qts eigene Optionen wie -platform werden ebenfalls verstanden. Dasselbe leistet broomtide-cli im
Terminal.
</translation>
    </message>
    <message>
        <source>broomtide: There is no display to open a window on. In a terminal, use broomtide-cli.
</source>
        <translation>broomtide: Es gibt keine Anzeige, auf der sich ein Fenster öffnen ließe. Nutzen Sie im Terminal broomtide-cli.
</translation>
    </message>
    <message>
        <source>broomtide: &apos;%1&apos; is not understood; the window takes no folder.
Run broomtide --help for more information.
</source>
        <translation>broomtide: „%1“ wird nicht verstanden; das Fenster nimmt keinen Ordner entgegen.
Mehr dazu zeigt broomtide --help.
</translation>
    </message>
</context>
<context>
    <name>DisplayText</name>
    <message>
        <source>%1 byte</source>
        <translation>%1 Byte</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Byte</translation>
    </message>
    <message>
        <source>%1 KB</source>
        <translation>%1 KB</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1 GB</translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation>%1 TB</translation>
    </message>
    <message>
        <source>%1 PB</source>
        <translation>%1 PB</translation>
    </message>
    <message>
        <source>%1 EB</source>
        <translation>%1 EB</translation>
    </message>
    <message>
        <source>Unusual characters</source>
        <translation>Ungewöhnliche Zeichen</translation>
    </message>
    <message>
        <source>Zero KB</source>
        <translation>0 KB</translation>
    </message>
</context>
<context>
    <name>Engine</name>
    <message>
        <source>Nothing to clean here</source>
        <translation>Hier gibt es nichts zu bereinigen</translation>
    </message>
    <message>
        <source>Cleanup complete</source>
        <translation>Bereinigung abgeschlossen</translation>
    </message>
    <message>
        <source>Move selected items to Trash?</source>
        <translation>Ausgewählte Objekte in den Papierkorb verschieben?</translation>
    </message>
    <message>
        <source>No cleanup history</source>
        <translation>Kein Bereinigungsverlauf</translation>
    </message>
    <message>
        <source>Completed cleanups will appear here.</source>
        <translation>Abgeschlossene Bereinigungen erscheinen hier.</translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) could not be read and were skipped.</source>
        <translation>
            <numerusform>%n Objekt konnte nicht gelesen werden und wurde übersprungen.</numerusform>
            <numerusform>%n Objekte konnten nicht gelesen werden und wurden übersprungen.</numerusform>
        </translation>
    </message>
    <message>
        <source>The known developer cache locations under this folder are already clean.</source>
        <translation>Die bekannten Entwickler-Caches in diesem Ordner sind bereits leer.</translation>
    </message>
    <message numerus="yes">
        <source>Broomtide scanned %n items but did not find a supported disposable artifact in this folder.</source>
        <translation>
            <numerusform>Broomtide hat %n Objekt gescannt, aber in diesem Ordner kein unterstütztes entbehrliches Artefakt gefunden.</numerusform>
            <numerusform>Broomtide hat %n Objekte gescannt, aber in diesem Ordner kein unterstütztes entbehrliches Artefakt gefunden.</numerusform>
        </translation>
    </message>
    <message>
        <source>Preparing scan…</source>
        <translation>Scan wird vorbereitet …</translation>
    </message>
    <message>
        <source>Scanning Downloads…</source>
        <translation>Downloads werden gescannt …</translation>
    </message>
    <message>
        <source>Scan complete</source>
        <translation>Scan abgeschlossen</translation>
    </message>
    <message>
        <source>Calculating %1…</source>
        <translation>Größe von %1 wird ermittelt …</translation>
    </message>
    <message numerus="yes">
        <source>Detected %n project context(s)…</source>
        <translation>
            <numerusform>%n Projekt erkannt …</numerusform>
            <numerusform>%n Projekte erkannt …</numerusform>
        </translation>
    </message>
    <message>
        <source>Detected %1 project from %2.</source>
        <translation>Projekt (%1) anhand von %2 erkannt.</translation>
    </message>
    <message>
        <source>Well-known developer cache location (~/%1).</source>
        <translation>Bekannter Ort für Entwickler-Caches (~/%1).</translation>
    </message>
    <message>
        <source>No known developer cache locations were found under “%1”. When scanning developer caches, select your home folder (%2) in the picker.</source>
        <translation>In „%1“ wurden keine bekannten Entwickler-Caches gefunden. Wählen Sie zum Scannen von Entwickler-Caches Ihren persönlichen Ordner (%2) aus.</translation>
    </message>
    <message>
        <source>your home folder</source>
        <translation>Ihr persönlicher Ordner</translation>
    </message>
    <message>
        <source>Recognized artifact signature, but no supported project manifest was found nearby.</source>
        <translation>Artefakt erkannt, aber in der Nähe wurde kein unterstütztes Projektmanifest gefunden.</translation>
    </message>
    <message>
        <source>The path is ignored by Git.</source>
        <translation>Der Pfad wird von Git ignoriert.</translation>
    </message>
    <message>
        <source>The path is untracked, but not explicitly ignored by Git.</source>
        <translation>Der Pfad ist nicht versioniert, wird von Git aber nicht ausdrücklich ignoriert.</translation>
    </message>
    <message>
        <source>Git status could not be verified.</source>
        <translation>Der Git-Status konnte nicht geprüft werden.</translation>
    </message>
    <message>
        <source>No Git repository was detected for this project.</source>
        <translation>Für dieses Projekt wurde kein Git-Repository erkannt.</translation>
    </message>
    <message>
        <source>This is a generic artifact name, so Broomtide requires manual selection.</source>
        <translation>Der Name des Artefakts ist zu allgemein, daher muss es von Hand ausgewählt werden.</translation>
    </message>
    <message>
        <source>The artifact name and project ecosystem agree.</source>
        <translation>Der Name des Artefakts passt zum Ökosystem des Projekts.</translation>
    </message>
    <message>
        <source>Matched the Downloads cleanup rule.</source>
        <translation>Entspricht der Bereinigungsregel für Downloads.</translation>
    </message>
    <message>
        <source>The item disappeared while it was being scanned.</source>
        <translation>Das Objekt ist während des Scans verschwunden.</translation>
    </message>
    <message>
        <source>Scan cancelled. No files were changed.</source>
        <translation>Scan abgebrochen. Es wurden keine Dateien verändert.</translation>
    </message>
    <message>
        <source>Cleanup finished, but Broomtide could not save the local history.</source>
        <translation>Die Bereinigung ist abgeschlossen, aber der lokale Verlauf konnte nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>.NET</source>
        <translation>.NET</translation>
    </message>
    <message>
        <source>.NET compiler output that can be rebuilt.</source>
        <translation>Ausgabe des .NET-Compilers, die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>.NET intermediate compiler output that can be rebuilt.</source>
        <translation>Zwischenausgabe des .NET-Compilers, die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>.NET test results that can be regenerated.</source>
        <translation>.NET-Testergebnisse, die sich neu erzeugen lassen.</translation>
    </message>
    <message>
        <source>AWS SAM build output that can be recreated.</source>
        <translation>Build-Ausgabe von AWS SAM, die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>Angular CLI cache. It can be recreated.</source>
        <translation>Cache der Angular CLI. Er lässt sich neu erzeugen.</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>Archiv</translation>
    </message>
    <message>
        <source>Archive older than 30 days.</source>
        <translation>Archiv, das älter als 30 Tage ist.</translation>
    </message>
    <message>
        <source>Broomtide could not move this item to Trash. It may be locked, in use, or require additional permission.</source>
        <translation>Das Objekt konnte nicht in den Papierkorb verschoben werden. Möglicherweise ist es gesperrt, wird verwendet oder erfordert weitere Berechtigungen.</translation>
    </message>
    <message>
        <source>Broomtide does not have permission to access this folder. Choose it again or grant access in macOS Settings.</source>
        <translation>Broomtide darf nicht auf diesen Ordner zugreifen. Wählen Sie ihn noch einmal aus oder erlauben Sie den Zugriff in den Systemeinstellungen.</translation>
    </message>
    <message>
        <source>Broomtide runs as root with the home folder of another user, in which it would keep what belongs to root. Run it as that user, or with the home folder of root (sudo -H).</source>
        <translation>Broomtide läuft als root, aber mit dem persönlichen Ordner eines anderen Benutzers, in dem dann Daten von root lägen. Starten Sie es als dieser Benutzer oder mit dem persönlichen Ordner von root (sudo -H).</translation>
    </message>
    <message>
        <source>Broomtide scans only the folder you choose. Nothing is uploaded.</source>
        <translation>Broomtide scannt nur den Ordner, den Sie auswählen. Es wird nichts hochgeladen.</translation>
    </message>
    <message>
        <source>Build Cache</source>
        <translation>Build-Cache</translation>
    </message>
    <message>
        <source>Build Output</source>
        <translation>Build-Ausgabe</translation>
    </message>
    <message>
        <source>Build the project again in Xcode.</source>
        <translation>Erstellen Sie das Projekt in Xcode neu.</translation>
    </message>
    <message>
        <source>C / C++</source>
        <translation>C / C++</translation>
    </message>
    <message>
        <source>CMake debug build output that can be rebuilt.</source>
        <translation>CMake-Build-Ausgabe (Debug), die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>CMake release build output that can be rebuilt.</source>
        <translation>CMake-Build-Ausgabe (Release), die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>CMake-generated build metadata that can be recreated.</source>
        <translation>Von CMake erzeugte Build-Metadaten, die sich neu erzeugen lassen.</translation>
    </message>
    <message>
        <source>CMake-generated configuration cache.</source>
        <translation>Von CMake erzeugter Konfigurations-Cache.</translation>
    </message>
    <message>
        <source>CSV exports may contain important data. Review before cleaning.</source>
        <translation>CSV-Exporte können wichtige Daten enthalten. Prüfen Sie sie vor der Bereinigung.</translation>
    </message>
    <message>
        <source>Cabal build output that can be rebuilt.</source>
        <translation>Build-Ausgabe von Cabal, die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>Cache</source>
        <translation>Cache</translation>
    </message>
    <message>
        <source>Cannot allocate memory</source>
        <translation>Es kann kein Speicher reserviert werden</translation>
    </message>
    <message>
        <source>Cargo crate registry cache. Crates are downloaded again on the next build.</source>
        <translation>Cache der Cargo-Registry. Crates werden beim nächsten Build erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Choose a project folder</source>
        <translation>Projektordner auswählen</translation>
    </message>
    <message>
        <source>Choose your Downloads folder</source>
        <translation>Download-Ordner auswählen</translation>
    </message>
    <message>
        <source>Choose your home folder</source>
        <translation>Persönlichen Ordner auswählen</translation>
    </message>
    <message>
        <source>Cleanup was cancelled.</source>
        <translation>Die Bereinigung wurde abgebrochen.</translation>
    </message>
    <message>
        <source>CocoaPods dependencies can usually be restored with pod install.</source>
        <translation>CocoaPods-Abhängigkeiten lassen sich in der Regel mit pod install wiederherstellen.</translation>
    </message>
    <message>
        <source>CocoaPods download cache. Pods are downloaded again on the next install.</source>
        <translation>Download-Cache von CocoaPods. Pods werden bei der nächsten Installation erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Common generated build output that can be rebuilt.</source>
        <translation>Übliche Build-Ausgabe, die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>Common production build output that can be rebuilt.</source>
        <translation>Übliche Build-Ausgabe für die Produktion, die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>Common static export or compiler output that can be rebuilt.</source>
        <translation>Üblicher statischer Export oder Compiler-Ausgabe, die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>Configure and build the CMake project again.</source>
        <translation>Konfigurieren und erstellen Sie das CMake-Projekt neu.</translation>
    </message>
    <message>
        <source>Dart and Flutter tool state that can be regenerated.</source>
        <translation>Werkzeugzustand von Dart und Flutter, der sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>Debug symbols copied from connected iOS devices. Xcode copies them again on the next connection, which takes a while.</source>
        <translation>Von verbundenen iOS-Geräten kopierte Debug-Symbole. Xcode kopiert sie bei der nächsten Verbindung erneut, was eine Weile dauert.</translation>
    </message>
    <message>
        <source>Debug symbols copied from paired Apple Watches. Xcode copies them again on the next connection.</source>
        <translation>Von gekoppelten Apple Watches kopierte Debug-Symbole. Xcode kopiert sie bei der nächsten Verbindung erneut.</translation>
    </message>
    <message>
        <source>Dependencies</source>
        <translation>Abhängigkeiten</translation>
    </message>
    <message>
        <source>Dependencies can be restored with the project&apos;s package manager.</source>
        <translation>Abhängigkeiten lassen sich mit dem Paketmanager des Projekts wiederherstellen.</translation>
    </message>
    <message>
        <source>Dependencies may be restored with Composer or another package manager.</source>
        <translation>Abhängigkeiten lassen sich eventuell mit Composer oder einem anderen Paketmanager wiederherstellen.</translation>
    </message>
    <message>
        <source>Dependency Cache</source>
        <translation>Abhängigkeiten-Cache</translation>
    </message>
    <message>
        <source>Dependency Metadata</source>
        <translation>Abhängigkeiten-Metadaten</translation>
    </message>
    <message>
        <source>Device Symbols</source>
        <translation>Gerätesymbole</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Dokument</translation>
    </message>
    <message>
        <source>Downloaded Terraform providers and modules can be restored with terraform init.</source>
        <translation>Heruntergeladene Terraform-Provider und -Module lassen sich mit terraform init wiederherstellen.</translation>
    </message>
    <message>
        <source>ESLint cache. It can be recreated.</source>
        <translation>Cache von ESLint. Er lässt sich neu erzeugen.</translation>
    </message>
    <message>
        <source>Elixir</source>
        <translation>Elixir</translation>
    </message>
    <message>
        <source>Elixir build output that can be rebuilt.</source>
        <translation>Build-Ausgabe von Elixir, die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>Elixir dependencies can be restored with mix deps.get.</source>
        <translation>Elixir-Abhängigkeiten lassen sich mit mix deps.get wiederherstellen.</translation>
    </message>
    <message>
        <source>Expo development cache. It can be recreated.</source>
        <translation>Entwicklungs-Cache von Expo. Er lässt sich neu erzeugen.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>File name too long</source>
        <translation>Dateiname zu lang</translation>
    </message>
    <message>
        <source>Flutter / Dart</source>
        <translation>Flutter / Dart</translation>
    </message>
    <message>
        <source>Generated Astro metadata and build cache.</source>
        <translation>Von Astro erzeugte Metadaten und Build-Cache.</translation>
    </message>
    <message>
        <source>Generated Docusaurus build metadata.</source>
        <translation>Von Docusaurus erzeugte Build-Metadaten.</translation>
    </message>
    <message>
        <source>Generated Flutter plugin dependency metadata.</source>
        <translation>Erzeugte Metadaten zu den Abhängigkeiten von Flutter-Plugins.</translation>
    </message>
    <message>
        <source>Generated Flutter plugin metadata.</source>
        <translation>Erzeugte Metadaten zu Flutter-Plugins.</translation>
    </message>
    <message>
        <source>Generated NYC coverage data.</source>
        <translation>Von NYC erzeugte Daten zur Testabdeckung.</translation>
    </message>
    <message>
        <source>Generated Python HTML coverage output.</source>
        <translation>Erzeugter HTML-Bericht zur Testabdeckung von Python.</translation>
    </message>
    <message>
        <source>Generated Storybook static build.</source>
        <translation>Erzeugter statischer Storybook-Build.</translation>
    </message>
    <message>
        <source>Generated by Next.js and can be recreated.</source>
        <translation>Von Next.js erzeugt und wiederherstellbar.</translation>
    </message>
    <message>
        <source>Generated by Nuxt and can be recreated.</source>
        <translation>Von Nuxt erzeugt und wiederherstellbar.</translation>
    </message>
    <message>
        <source>Generated by SvelteKit and can be recreated.</source>
        <translation>Von SvelteKit erzeugt und wiederherstellbar.</translation>
    </message>
    <message>
        <source>Generated framework output that can be rebuilt.</source>
        <translation>Von einem Framework erzeugte Ausgabe, die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>Generated test coverage output.</source>
        <translation>Erzeugte Ausgabe zur Testabdeckung.</translation>
    </message>
    <message>
        <source>Generic cache folder. Review it if you are unsure.</source>
        <translation>Allgemeiner Cache-Ordner. Prüfen Sie ihn im Zweifelsfall.</translation>
    </message>
    <message>
        <source>Git status could not be revalidated. Broomtide left the item untouched.</source>
        <translation>Der Git-Status konnte nicht erneut geprüft werden. Das Objekt blieb unangetastet.</translation>
    </message>
    <message>
        <source>Git status unavailable</source>
        <translation>Git-Status nicht verfügbar</translation>
    </message>
    <message>
        <source>Global Gradle dependency and build cache. Dependencies are downloaded again on the next build.</source>
        <translation>Globaler Abhängigkeiten- und Build-Cache von Gradle. Abhängigkeiten werden beim nächsten Build erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>Go</translation>
    </message>
    <message>
        <source>Go build cache. The compiler recreates it on the next build.</source>
        <translation>Build-Cache von Go. Der Compiler erzeugt ihn beim nächsten Build neu.</translation>
    </message>
    <message>
        <source>Haskell</source>
        <translation>Haskell</translation>
    </message>
    <message>
        <source>High confidence</source>
        <translation>Hohe Gewissheit</translation>
    </message>
    <message>
        <source>Homebrew download cache. Formulae are downloaded again when needed.</source>
        <translation>Download-Cache von Homebrew. Formulae werden bei Bedarf erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Homebrew re-downloads packages on demand.</source>
        <translation>Homebrew lädt Pakete bei Bedarf erneut herunter.</translation>
    </message>
    <message>
        <source>Ignored by Git</source>
        <translation>Von Git ignoriert</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Eingabe-/Ausgabefehler</translation>
    </message>
    <message>
        <source>Installer</source>
        <translation>Installationsdatei</translation>
    </message>
    <message>
        <source>Installer older than 7 days.</source>
        <translation>Installationsdatei, die älter als 7 Tage ist.</translation>
    </message>
    <message>
        <source>Invalid argument</source>
        <translation>Ungültiges Argument</translation>
    </message>
    <message>
        <source>Java / Kotlin</source>
        <translation>Java / Kotlin</translation>
    </message>
    <message>
        <source>JavaScript / TypeScript</source>
        <translation>JavaScript / TypeScript</translation>
    </message>
    <message>
        <source>Keep your home folder selected and press Scan Caches. Broomtide checks well-known developer cache locations under it. Nothing is uploaded.</source>
        <translation>Lassen Sie Ihren persönlichen Ordner ausgewählt und klicken Sie auf „Caches scannen“. Broomtide prüft darin bekannte Orte für Entwickler-Caches. Es wird nichts hochgeladen.</translation>
    </message>
    <message>
        <source>Legacy Flutter package metadata that can be regenerated.</source>
        <translation>Alte Flutter-Paketmetadaten, die sich neu erzeugen lassen.</translation>
    </message>
    <message>
        <source>Lint Cache</source>
        <translation>Lint-Cache</translation>
    </message>
    <message>
        <source>Local Maven repository. Dependencies are downloaded again on the next build.</source>
        <translation>Lokales Maven-Repository. Abhängigkeiten werden beim nächsten Build erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Local Vercel project metadata. Cleaning it may require linking the project again.</source>
        <translation>Lokale Vercel-Projektmetadaten. Nach der Bereinigung muss das Projekt eventuell neu verknüpft werden.</translation>
    </message>
    <message>
        <source>Log files are usually safe to remove.</source>
        <translation>Protokolldateien können in der Regel gefahrlos entfernt werden.</translation>
    </message>
    <message>
        <source>Logs</source>
        <translation>Protokolle</translation>
    </message>
    <message>
        <source>Low confidence</source>
        <translation>Geringe Gewissheit</translation>
    </message>
    <message>
        <source>Medium confidence</source>
        <translation>Mittlere Gewissheit</translation>
    </message>
    <message>
        <source>Mypy cache. It can be recreated.</source>
        <translation>Cache von Mypy. Er lässt sich neu erzeugen.</translation>
    </message>
    <message>
        <source>No such device</source>
        <translation>Gerät nicht gefunden</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>Datei oder Verzeichnis nicht gefunden</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>Ist kein Verzeichnis</translation>
    </message>
    <message>
        <source>Nox environments can be recreated.</source>
        <translation>Nox-Umgebungen lassen sich neu erzeugen.</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>Vorgang nicht zulässig</translation>
    </message>
    <message>
        <source>PDF documents may be important. Review before cleaning.</source>
        <translation>PDF-Dokumente können wichtig sein. Prüfen Sie sie vor der Bereinigung.</translation>
    </message>
    <message>
        <source>PHP</source>
        <translation>PHP</translation>
    </message>
    <message>
        <source>Package Cache</source>
        <translation>Paket-Cache</translation>
    </message>
    <message>
        <source>Parcel cache. It can be recreated.</source>
        <translation>Cache von Parcel. Er lässt sich neu erzeugen.</translation>
    </message>
    <message>
        <source>Per-project Xcode build data. Xcode recreates it on the next build.</source>
        <translation>Xcode-Build-Daten einzelner Projekte. Xcode erzeugt sie beim nächsten Build neu.</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Keine Berechtigung</translation>
    </message>
    <message>
        <source>Playwright browser binaries. They are downloaded again on the next test run, which can be large.</source>
        <translation>Browser-Binärdateien von Playwright. Sie werden beim nächsten Testlauf erneut heruntergeladen und können groß sein.</translation>
    </message>
    <message>
        <source>Project Metadata</source>
        <translation>Projektmetadaten</translation>
    </message>
    <message>
        <source>Project log directory. Review before cleaning.</source>
        <translation>Protokollverzeichnis des Projekts. Prüfen Sie es vor der Bereinigung.</translation>
    </message>
    <message>
        <source>Project-local Gradle cache. It can be recreated.</source>
        <translation>Gradle-Cache des Projekts. Er lässt sich neu erzeugen.</translation>
    </message>
    <message>
        <source>Project-local Xcode build data. Xcode recreates it when needed.</source>
        <translation>Xcode-Build-Daten des Projekts. Xcode erzeugt sie bei Bedarf neu.</translation>
    </message>
    <message>
        <source>Project-local pnpm store. Dependencies may need to be downloaded again.</source>
        <translation>pnpm-Speicher des Projekts. Abhängigkeiten müssen eventuell erneut heruntergeladen werden.</translation>
    </message>
    <message>
        <source>Pytest cache. It can be recreated.</source>
        <translation>Cache von Pytest. Er lässt sich neu erzeugen.</translation>
    </message>
    <message>
        <source>Python</source>
        <translation>Python</translation>
    </message>
    <message>
        <source>Python Cache</source>
        <translation>Python-Cache</translation>
    </message>
    <message>
        <source>Python bytecode cache. It can be recreated.</source>
        <translation>Bytecode-Cache von Python. Er lässt sich neu erzeugen.</translation>
    </message>
    <message>
        <source>Python virtual environment. Recreate it before running the project again.</source>
        <translation>Virtuelle Python-Umgebung. Erzeugen Sie sie neu, bevor Sie das Projekt wieder ausführen.</translation>
    </message>
    <message>
        <source>Reconnect the device and let Xcode prepare it again.</source>
        <translation>Verbinden Sie das Gerät erneut und lassen Sie es von Xcode vorbereiten.</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Recreate the environment and install dependencies from the project lock or requirements file.</source>
        <translation>Erzeugen Sie die Umgebung neu und installieren Sie die Abhängigkeiten aus der Lock- oder Requirements-Datei des Projekts.</translation>
    </message>
    <message>
        <source>Restore dependencies with the project&apos;s package manager.</source>
        <translation>Stellen Sie die Abhängigkeiten mit dem Paketmanager des Projekts wieder her.</translation>
    </message>
    <message>
        <source>Review First</source>
        <translation>Erst prüfen</translation>
    </message>
    <message>
        <source>Ruby</source>
        <translation>Ruby</translation>
    </message>
    <message>
        <source>Ruff cache. It can be recreated.</source>
        <translation>Cache von Ruff. Er lässt sich neu erzeugen.</translation>
    </message>
    <message>
        <source>Run cargo build again.</source>
        <translation>Führen Sie cargo build erneut aus.</translation>
    </message>
    <message>
        <source>Run dotnet build or dotnet test again.</source>
        <translation>Führen Sie dotnet build oder dotnet test erneut aus.</translation>
    </message>
    <message>
        <source>Run flutter pub get and rebuild the project.</source>
        <translation>Führen Sie flutter pub get aus und erstellen Sie das Projekt neu.</translation>
    </message>
    <message>
        <source>Run go build again.</source>
        <translation>Führen Sie go build erneut aus.</translation>
    </message>
    <message>
        <source>Run mix compile again.</source>
        <translation>Führen Sie mix compile erneut aus.</translation>
    </message>
    <message>
        <source>Run mix deps.get again.</source>
        <translation>Führen Sie mix deps.get erneut aus.</translation>
    </message>
    <message>
        <source>Run npm install, pnpm install, or yarn install.</source>
        <translation>Führen Sie npm install, pnpm install oder yarn install aus.</translation>
    </message>
    <message>
        <source>Run npx playwright install again.</source>
        <translation>Führen Sie npx playwright install erneut aus.</translation>
    </message>
    <message>
        <source>Run pod install again.</source>
        <translation>Führen Sie pod install erneut aus.</translation>
    </message>
    <message>
        <source>Run swift build again.</source>
        <translation>Führen Sie swift build erneut aus.</translation>
    </message>
    <message>
        <source>Run swift package resolve or build the project again.</source>
        <translation>Führen Sie swift package resolve aus oder erstellen Sie das Projekt neu.</translation>
    </message>
    <message>
        <source>Run terraform init or terragrunt init again.</source>
        <translation>Führen Sie terraform init oder terragrunt init erneut aus.</translation>
    </message>
    <message>
        <source>Run the Gradle build again.</source>
        <translation>Führen Sie den Gradle-Build erneut aus.</translation>
    </message>
    <message>
        <source>Run the Maven build again.</source>
        <translation>Führen Sie den Maven-Build erneut aus.</translation>
    </message>
    <message>
        <source>Run the Stack or Cabal build again.</source>
        <translation>Führen Sie den Stack- oder Cabal-Build erneut aus.</translation>
    </message>
    <message>
        <source>Run the deployment framework build or package command again.</source>
        <translation>Führen Sie den Build- oder Paketbefehl des Deployment-Frameworks erneut aus.</translation>
    </message>
    <message>
        <source>Run the project&apos;s compiler or build command again.</source>
        <translation>Führen Sie den Compiler oder den Build-Befehl des Projekts erneut aus.</translation>
    </message>
    <message>
        <source>Run the project&apos;s package-manager build command.</source>
        <translation>Führen Sie den Build-Befehl des Paketmanagers im Projekt aus.</translation>
    </message>
    <message>
        <source>Run the relevant Python test, lint, or type-check command again.</source>
        <translation>Führen Sie den jeweiligen Python-Befehl für Tests, Lint oder Typprüfung erneut aus.</translation>
    </message>
    <message>
        <source>Run the relevant project build or development command again.</source>
        <translation>Führen Sie den jeweiligen Build- oder Entwicklungsbefehl des Projekts erneut aus.</translation>
    </message>
    <message>
        <source>Run the test suite with coverage again.</source>
        <translation>Führen Sie die Tests mit Messung der Testabdeckung erneut aus.</translation>
    </message>
    <message>
        <source>Run yarn install again.</source>
        <translation>Führen Sie yarn install erneut aus.</translation>
    </message>
    <message>
        <source>Rust</source>
        <translation>Rust</translation>
    </message>
    <message>
        <source>Rust, Maven, or other compiler output. Confirm this folder is generated.</source>
        <translation>Ausgabe von Rust, Maven oder einem anderen Compiler. Vergewissern Sie sich, dass dieser Ordner erzeugt wurde.</translation>
    </message>
    <message>
        <source>Safe to Clean</source>
        <translation>Sicher</translation>
    </message>
    <message>
        <source>Scan Caches</source>
        <translation>Caches scannen</translation>
    </message>
    <message>
        <source>Scan Folder</source>
        <translation>Ordner scannen</translation>
    </message>
    <message>
        <source>Screen recording older than 30 days.</source>
        <translation>Bildschirmaufnahme, die älter als 30 Tage ist.</translation>
    </message>
    <message>
        <source>Screenshot</source>
        <translation>Bildschirmfoto</translation>
    </message>
    <message>
        <source>Screenshot older than 30 days.</source>
        <translation>Bildschirmfoto, das älter als 30 Tage ist.</translation>
    </message>
    <message>
        <source>Serverless Framework build output that can be recreated.</source>
        <translation>Build-Ausgabe des Serverless Framework, die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>Simulator Cache</source>
        <translation>Simulator-Cache</translation>
    </message>
    <message>
        <source>Simulator runtime caches. The simulator recreates them when needed.</source>
        <translation>Laufzeit-Caches des Simulators. Der Simulator erzeugt sie bei Bedarf neu.</translation>
    </message>
    <message>
        <source>Spreadsheet exports may contain important data. Review before cleaning.</source>
        <translation>Exportierte Tabellen können wichtige Daten enthalten. Prüfen Sie sie vor der Bereinigung.</translation>
    </message>
    <message>
        <source>Stack build output that can be rebuilt.</source>
        <translation>Build-Ausgabe von Stack, die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>Stale file handle</source>
        <translation>Veraltetes Datei-Handle</translation>
    </message>
    <message>
        <source>Stylelint cache. It can be recreated.</source>
        <translation>Cache von Stylelint. Er lässt sich neu erzeugen.</translation>
    </message>
    <message>
        <source>Swift / Apple</source>
        <translation>Swift / Apple</translation>
    </message>
    <message>
        <source>Swift Package Manager build output that can be rebuilt.</source>
        <translation>Build-Ausgabe des Swift Package Manager, die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>Swift Package Manager download cache. Packages are downloaded again when resolved.</source>
        <translation>Download-Cache des Swift Package Manager. Pakete werden beim Auflösen erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Temporary Files</source>
        <translation>Temporäre Dateien</translation>
    </message>
    <message>
        <source>Temporary project files. Review before cleaning.</source>
        <translation>Temporäre Projektdateien. Prüfen Sie sie vor der Bereinigung.</translation>
    </message>
    <message>
        <source>Terraform</source>
        <translation>Terraform</translation>
    </message>
    <message>
        <source>Terragrunt download cache can be recreated.</source>
        <translation>Der Download-Cache von Terragrunt lässt sich neu erzeugen.</translation>
    </message>
    <message>
        <source>Test Cache</source>
        <translation>Test-Cache</translation>
    </message>
    <message>
        <source>Test Environment</source>
        <translation>Testumgebung</translation>
    </message>
    <message>
        <source>Test Output</source>
        <translation>Testausgabe</translation>
    </message>
    <message>
        <source>The item changed after the scan. Rescan before cleaning it.</source>
        <translation>Das Objekt wurde nach dem Scan ersetzt. Scannen Sie vor der Bereinigung erneut.</translation>
    </message>
    <message>
        <source>The item changed into a symbolic link and was skipped.</source>
        <translation>Das Objekt ist inzwischen ein symbolischer Link und wurde übersprungen.</translation>
    </message>
    <message>
        <source>The item is no longer ignored by Git. Rescan before cleaning it.</source>
        <translation>Das Objekt wird nicht mehr von Git ignoriert. Scannen Sie vor der Bereinigung erneut.</translation>
    </message>
    <message>
        <source>The item is no longer inside the selected folder.</source>
        <translation>Das Objekt befindet sich nicht mehr im gewählten Ordner.</translation>
    </message>
    <message>
        <source>The item is in use by %1 (%2). Broomtide left it untouched.</source>
        <translation>Das Objekt wird von %1 (%2) verwendet und blieb unangetastet.</translation>
    </message>
    <message>
        <source>The item is now tracked by Git. Broomtide left it untouched.</source>
        <translation>Das Objekt wird inzwischen von Git versioniert und blieb unangetastet.</translation>
    </message>
    <message>
        <source>The item was modified after the scan. Rescan before cleaning it.</source>
        <translation>Das Objekt wurde nach dem Scan geändert. Scannen Sie vor der Bereinigung erneut.</translation>
    </message>
    <message>
        <source>The operation was cancelled.</source>
        <translation>Der Vorgang wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The selected folder no longer exists or is not a directory.</source>
        <translation>Der gewählte Ordner existiert nicht mehr oder ist kein Verzeichnis.</translation>
    </message>
    <message>
        <source>This item no longer exists. It may have been moved or deleted.</source>
        <translation>Das Objekt existiert nicht mehr. Möglicherweise wurde es verschoben oder gelöscht.</translation>
    </message>
    <message>
        <source>Too many levels of symbolic links</source>
        <translation>Zu viele Ebenen aus symbolischen Links</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>Zu viele offene Dateien</translation>
    </message>
    <message>
        <source>Too many open files in system</source>
        <translation>Zu viele offene Dateien im System</translation>
    </message>
    <message>
        <source>Tool Cache</source>
        <translation>Werkzeug-Cache</translation>
    </message>
    <message>
        <source>Tox environments can be recreated.</source>
        <translation>Tox-Umgebungen lassen sich neu erzeugen.</translation>
    </message>
    <message>
        <source>Tracked by Git</source>
        <translation>Von Git versioniert</translation>
    </message>
    <message>
        <source>Transport endpoint is not connected</source>
        <translation>Der Endpunkt der Übertragung ist nicht verbunden</translation>
    </message>
    <message>
        <source>Turborepo cache. It can be recreated.</source>
        <translation>Cache von Turborepo. Er lässt sich neu erzeugen.</translation>
    </message>
    <message>
        <source>Type Check Cache</source>
        <translation>Typprüfungs-Cache</translation>
    </message>
    <message>
        <source>Untracked</source>
        <translation>Nicht versioniert</translation>
    </message>
    <message>
        <source>Usually Safe</source>
        <translation>Meist sicher</translation>
    </message>
    <message>
        <source>Value too large for defined data type</source>
        <translation>Wert zu groß für den definierten Datentyp</translation>
    </message>
    <message>
        <source>Vite cache. It can be recreated.</source>
        <translation>Cache von Vite. Er lässt sich neu erzeugen.</translation>
    </message>
    <message>
        <source>Webpack cache or generated output that can be recreated.</source>
        <translation>Webpack-Cache oder erzeugte Ausgabe, die sich neu erzeugen lässt.</translation>
    </message>
    <message>
        <source>Xcode Build Data</source>
        <translation>Xcode-Build-Daten</translation>
    </message>
    <message>
        <source>Yarn download cache. Packages are downloaded again when installed.</source>
        <translation>Download-Cache von Yarn. Pakete werden bei der Installation erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>macOS Metadata</source>
        <translation>macOS-Metadaten</translation>
    </message>
    <message>
        <source>macOS metadata file. It can be recreated.</source>
        <translation>macOS-Metadatendatei. Sie lässt sich neu erzeugen.</translation>
    </message>
    <message>
        <source>npm download cache. Packages are downloaded again when installed.</source>
        <translation>Download-Cache von npm. Pakete werden bei der Installation erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>npm re-downloads packages on demand.</source>
        <translation>npm lädt Pakete bei Bedarf erneut herunter.</translation>
    </message>
    <message>
        <source>pip download cache. Python packages are downloaded again when installed.</source>
        <translation>Download-Cache von pip. Python-Pakete werden bei der Installation erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>pip re-downloads packages on demand.</source>
        <translation>pip lädt Pakete bei Bedarf erneut herunter.</translation>
    </message>
    <message>
        <source>Bazel outputs and downloads of all workspaces. They are built and downloaded again on the next build, which takes a while.</source>
        <translation>Ausgaben und Downloads aller Bazel-Workspaces. Sie werden beim nächsten Build erneut erzeugt und heruntergeladen, was eine Weile dauert.</translation>
    </message>
    <message>
        <source>Browsers downloaded by Puppeteer. They are downloaded again on the next install, which can be large.</source>
        <translation>Von Puppeteer heruntergeladene Browser. Sie werden bei der nächsten Installation erneut heruntergeladen und können groß sein.</translation>
    </message>
    <message>
        <source>Build the project again with ccache.</source>
        <translation>Erstellen Sie das Projekt mit ccache neu.</translation>
    </message>
    <message>
        <source>Build the project again with sccache.</source>
        <translation>Erstellen Sie das Projekt mit sccache neu.</translation>
    </message>
    <message>
        <source>Bun download cache. Packages are downloaded again when installed. Projects may hard-link into it, so it may free less than it shows.</source>
        <translation>Download-Cache von Bun. Pakete werden bei der Installation erneut heruntergeladen. Projekte können über harte Links darauf verweisen, sodass eventuell weniger Platz frei wird als angezeigt.</translation>
    </message>
    <message>
        <source>Cabal cache of package indexes and sources. They are downloaded again on the next update and build.</source>
        <translation>Cabal-Cache mit Paketindizes und Quelltexten. Sie werden bei der nächsten Aktualisierung und beim nächsten Build erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Cargo cache of Git dependencies. They are cloned again on the next build.</source>
        <translation>Cargo-Cache mit Git-Abhängigkeiten. Sie werden beim nächsten Build erneut geklont.</translation>
    </message>
    <message>
        <source>Code that Deno generated from modules. It is generated again on the next run.</source>
        <translation>Code, den Deno aus Modulen erzeugt hat. Er wird bei der nächsten Ausführung neu erzeugt.</translation>
    </message>
    <message>
        <source>Compiler cache. Compilations are cached again on the next build.</source>
        <translation>Compiler-Cache. Kompilate werden beim nächsten Build neu zwischengespeichert.</translation>
    </message>
    <message>
        <source>Composer download cache. Packages are downloaded again when installed.</source>
        <translation>Download-Cache von Composer. Pakete werden bei der Installation erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Conan package cache. Packages are downloaded again on the next install; those made on this machine are made again from their recipes.</source>
        <translation>Paket-Cache von Conan. Pakete werden bei der nächsten Installation erneut heruntergeladen; auf diesem Rechner erstellte werden aus ihren Rezepten neu erstellt.</translation>
    </message>
    <message>
        <source>Cypress binaries. They are downloaded again on the next install, which can be large.</source>
        <translation>Cypress-Binärdateien. Sie werden bei der nächsten Installation erneut heruntergeladen und können groß sein.</translation>
    </message>
    <message>
        <source>Dart and Flutter package cache. Projects use packages straight from it until they are downloaded again.</source>
        <translation>Paket-Cache von Dart und Flutter. Projekte verwenden die Pakete unmittelbar von dort; nach der Bereinigung müssen sie erneut heruntergeladen werden.</translation>
    </message>
    <message>
        <source>Datasets prepared by Hugging Face libraries. Preparing them again can take long, and some may no longer be offered.</source>
        <translation>Von Hugging-Face-Bibliotheken aufbereitete Datensätze. Sie neu aufzubereiten kann lange dauern, und manche werden eventuell nicht mehr angeboten.</translation>
    </message>
    <message>
        <source>Deno re-downloads modules on demand.</source>
        <translation>Deno lädt Module bei Bedarf erneut herunter.</translation>
    </message>
    <message>
        <source>Deno re-downloads packages on demand.</source>
        <translation>Deno lädt Pakete bei Bedarf erneut herunter.</translation>
    </message>
    <message>
        <source>Electron download cache. Electron is downloaded again on the next install.</source>
        <translation>Download-Cache von Electron. Electron wird bei der nächsten Installation erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Environments of pre-commit hooks, installed again on the next run. Patch files in it hold changes that were not staged while hooks ran, and do not come back.</source>
        <translation>Umgebungen von pre-commit-Hooks, die bei der nächsten Ausführung neu installiert werden. Patch-Dateien darin enthalten Änderungen, die beim Ausführen der Hooks nicht vorgemerkt waren; sie kommen nicht zurück.</translation>
    </message>
    <message>
        <source>Global NuGet package folder. Packages are downloaded again on the next restore.</source>
        <translation>Globaler NuGet-Paketordner. Pakete werden bei der nächsten Wiederherstellung erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Go build cache, with the inputs that fuzzing found. The compiler recreates it on the next build, and fuzzing finds inputs again.</source>
        <translation>Build-Cache von Go mit den Eingaben, die beim Fuzzing gefunden wurden. Der Compiler erzeugt ihn beim nächsten Build neu, und das Fuzzing findet Eingaben erneut.</translation>
    </message>
    <message>
        <source>Go module cache. Modules are downloaded again on the next build.</source>
        <translation>Modul-Cache von Go. Module werden beim nächsten Build erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Helm cache of chart repositories. Indexes and charts are downloaded again when updated.</source>
        <translation>Helm-Cache mit Chart-Repositorys. Indizes und Charts werden bei der Aktualisierung erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Hex download cache. Packages are downloaded again when dependencies are fetched.</source>
        <translation>Download-Cache von Hex. Pakete werden beim Abrufen der Abhängigkeiten erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Hugging Face libraries download them again when they are loaded.</source>
        <translation>Hugging-Face-Bibliotheken laden sie beim Verwenden erneut herunter.</translation>
    </message>
    <message>
        <source>Hugging Face transfer cache. Parts of models are downloaded again when needed.</source>
        <translation>Übertragungs-Cache von Hugging Face. Teile von Modellen werden bei Bedarf erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Indexes and caches of a JetBrains IDE, which recreates them. The local history of your files is in it too, and does not come back.</source>
        <translation>Indizes und Caches einer JetBrains-IDE, die sie neu erzeugt. Darin liegt auch der lokale Verlauf Ihrer Dateien; er kommt nicht zurück.</translation>
    </message>
    <message>
        <source>Load the datasets again.</source>
        <translation>Laden Sie die Datensätze erneut.</translation>
    </message>
    <message>
        <source>Model Cache</source>
        <translation>Modell-Cache</translation>
    </message>
    <message>
        <source>Models and datasets downloaded from Hugging Face. They can be large, and some may no longer be offered.</source>
        <translation>Von Hugging Face heruntergeladene Modelle und Datensätze. Sie können groß sein, und manche werden eventuell nicht mehr angeboten.</translation>
    </message>
    <message>
        <source>Models downloaded and kernels compiled by PyTorch. They can be large, and some may no longer be offered.</source>
        <translation>Von PyTorch heruntergeladene Modelle und kompilierte Kernel. Sie können groß sein, und manche werden eventuell nicht mehr angeboten.</translation>
    </message>
    <message>
        <source>Modules downloaded by Deno before version 2. They are downloaded again on the next run.</source>
        <translation>Von Deno vor Version 2 heruntergeladene Module. Sie werden bei der nächsten Ausführung erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Modules downloaded by Deno. They are downloaded again on the next run.</source>
        <translation>Von Deno heruntergeladene Module. Sie werden bei der nächsten Ausführung erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Node.js headers for building native modules. They are downloaded again on the next build.</source>
        <translation>Node.js-Header zum Erstellen nativer Module. Sie werden beim nächsten Build erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>NuGet download cache. Packages are downloaded again on the next restore.</source>
        <translation>Download-Cache von NuGet. Pakete werden bei der nächsten Wiederherstellung erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Open the projects in the IDE again.</source>
        <translation>Öffnen Sie die Projekte erneut in der IDE.</translation>
    </message>
    <message>
        <source>Packages built by vcpkg. They are built again on the next install, which takes a while.</source>
        <translation>Von vcpkg erstellte Pakete. Sie werden bei der nächsten Installation neu erstellt, was eine Weile dauert.</translation>
    </message>
    <message>
        <source>Part of the compiler cache. Compilations are cached again on the next build.</source>
        <translation>Teil des Compiler-Caches. Kompilate werden beim nächsten Build neu zwischengespeichert.</translation>
    </message>
    <message>
        <source>Playwright browser binaries, downloaded again on the next install. A folder named mcp-… is a browser profile instead, with its logins, and does not come back.</source>
        <translation>Browser-Binärdateien von Playwright, die bei der nächsten Installation erneut heruntergeladen werden. Ein Ordner namens mcp-… ist dagegen ein Browserprofil mit seinen Anmeldungen; er kommt nicht zurück.</translation>
    </message>
    <message>
        <source>Poetry cache of package indexes. They are downloaded again when dependencies are resolved.</source>
        <translation>Poetry-Cache mit Paketindizes. Sie werden beim Auflösen der Abhängigkeiten erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Poetry download cache. Packages are downloaded again when installed.</source>
        <translation>Download-Cache von Poetry. Pakete werden bei der Installation erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>PyTorch downloads models again when they are loaded.</source>
        <translation>PyTorch lädt Modelle beim Verwenden erneut herunter.</translation>
    </message>
    <message>
        <source>RubyGems cache of package indexes. They are downloaded again when needed.</source>
        <translation>RubyGems-Cache mit Paketindizes. Sie werden bei Bedarf erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>RubyGems re-downloads indexes on demand.</source>
        <translation>RubyGems lädt Indizes bei Bedarf erneut herunter.</translation>
    </message>
    <message>
        <source>Run bazel build again.</source>
        <translation>Führen Sie bazel build erneut aus.</translation>
    </message>
    <message>
        <source>Run bun install again.</source>
        <translation>Führen Sie bun install erneut aus.</translation>
    </message>
    <message>
        <source>Run cabal update and build the project again.</source>
        <translation>Führen Sie cabal update aus und erstellen Sie das Projekt neu.</translation>
    </message>
    <message>
        <source>Run composer install again.</source>
        <translation>Führen Sie composer install erneut aus.</translation>
    </message>
    <message>
        <source>Run conan install again, and conan create for your own packages.</source>
        <translation>Führen Sie conan install erneut aus und conan create für Ihre eigenen Pakete.</translation>
    </message>
    <message>
        <source>Run dart pub get or flutter pub get again.</source>
        <translation>Führen Sie dart pub get oder flutter pub get erneut aus.</translation>
    </message>
    <message>
        <source>Run dotnet restore again.</source>
        <translation>Führen Sie dotnet restore erneut aus.</translation>
    </message>
    <message>
        <source>Run electron-builder again.</source>
        <translation>Führen Sie electron-builder erneut aus.</translation>
    </message>
    <message>
        <source>Run go mod download again.</source>
        <translation>Führen Sie go mod download erneut aus.</translation>
    </message>
    <message>
        <source>Run helm repo update again.</source>
        <translation>Führen Sie helm repo update erneut aus.</translation>
    </message>
    <message>
        <source>Run npm install again.</source>
        <translation>Führen Sie npm install erneut aus.</translation>
    </message>
    <message>
        <source>Run npx cypress install again.</source>
        <translation>Führen Sie npx cypress install erneut aus.</translation>
    </message>
    <message>
        <source>Run npx puppeteer browsers install again.</source>
        <translation>Führen Sie npx puppeteer browsers install erneut aus.</translation>
    </message>
    <message>
        <source>Run pnpm install again.</source>
        <translation>Führen Sie pnpm install erneut aus.</translation>
    </message>
    <message>
        <source>Run poetry install again.</source>
        <translation>Führen Sie poetry install erneut aus.</translation>
    </message>
    <message>
        <source>Run pre-commit install-hooks again in each project.</source>
        <translation>Führen Sie pre-commit install-hooks in jedem Projekt erneut aus.</translation>
    </message>
    <message>
        <source>Run stack build again.</source>
        <translation>Führen Sie stack build erneut aus.</translation>
    </message>
    <message>
        <source>Run terraform init again in each project.</source>
        <translation>Führen Sie terraform init in jedem Projekt erneut aus.</translation>
    </message>
    <message>
        <source>Run the program with Deno again.</source>
        <translation>Führen Sie das Programm mit Deno erneut aus.</translation>
    </message>
    <message>
        <source>Run vcpkg install again.</source>
        <translation>Führen Sie vcpkg install erneut aus.</translation>
    </message>
    <message>
        <source>Run yarn install again in each project.</source>
        <translation>Führen Sie yarn install in jedem Projekt erneut aus.</translation>
    </message>
    <message>
        <source>Run zig build again.</source>
        <translation>Führen Sie zig build erneut aus.</translation>
    </message>
    <message>
        <source>Stack cache of package indexes and sources. They are downloaded again on the next build.</source>
        <translation>Stack-Cache mit Paketindizes und Quelltexten. Sie werden beim nächsten Build erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Terraform provider cache. Projects link into it and need their providers again.</source>
        <translation>Provider-Cache von Terraform. Projekte verweisen über Links darauf und brauchen ihre Provider nach der Bereinigung erneut.</translation>
    </message>
    <message>
        <source>Tools downloaded by electron-builder. They are downloaded again on the next build.</source>
        <translation>Von electron-builder heruntergeladene Werkzeuge. Sie werden beim nächsten Build erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>Yarn cache shared by all projects. Projects that run straight from it need their packages installed again.</source>
        <translation>Yarn-Cache, den alle Projekte teilen. Projekte, die unmittelbar daraus laufen, müssen ihre Pakete neu installieren.</translation>
    </message>
    <message>
        <source>Zig build and package cache. The compiler recreates it on the next build.</source>
        <translation>Build- und Paket-Cache von Zig. Der Compiler erzeugt ihn beim nächsten Build neu.</translation>
    </message>
    <message>
        <source>node-gyp re-downloads headers on demand.</source>
        <translation>node-gyp lädt Header bei Bedarf erneut herunter.</translation>
    </message>
    <message>
        <source>npm packages downloaded by Deno. They are downloaded again on the next run.</source>
        <translation>Von Deno heruntergeladene npm-Pakete. Sie werden bei der nächsten Ausführung erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>pnpm cache of package metadata and of what pnpm dlx ran. It is downloaded again when needed.</source>
        <translation>pnpm-Cache mit Paketmetadaten und dem, was pnpm dlx ausgeführt hat. Er wird bei Bedarf erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>pnpm package store. Projects hard-link into it, so it frees less than it shows. Packages are downloaded again when installed.</source>
        <translation>Paketspeicher von pnpm. Projekte verweisen über harte Links darauf, daher wird weniger Platz frei als angezeigt. Pakete werden bei der Installation erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>pnpm re-downloads packages on demand.</source>
        <translation>pnpm lädt Pakete bei Bedarf erneut herunter.</translation>
    </message>
    <message>
        <source>rustup download cache. Toolchains are downloaded again when installed.</source>
        <translation>Download-Cache von rustup. Toolchains werden bei der Installation erneut heruntergeladen.</translation>
    </message>
    <message>
        <source>rustup re-downloads toolchains on demand.</source>
        <translation>rustup lädt Toolchains bei Bedarf erneut herunter.</translation>
    </message>
    <message>
        <source>uv download and build cache. Packages are downloaded again when installed. Environments share its files, so it may free less than it shows.</source>
        <translation>Download- und Build-Cache von uv. Pakete werden bei der Installation erneut heruntergeladen. Umgebungen nutzen seine Dateien mit, sodass eventuell weniger Platz frei wird als angezeigt.</translation>
    </message>
    <message>
        <source>uv re-downloads packages on demand.</source>
        <translation>uv lädt Pakete bei Bedarf erneut herunter.</translation>
    </message>
    <message>
        <source>This is the whole file system. Choose a folder below it.</source>
        <translation>Das ist das gesamte Dateisystem. Wählen Sie einen Ordner darin.</translation>
    </message>
    <message>
        <source>A folder that a program has marked as a cache. Review before cleaning.</source>
        <translation>Ein Ordner, den ein Programm als Cache gekennzeichnet hat. Prüfen Sie ihn vor der Bereinigung.</translation>
    </message>
    <message>
        <source>A whole CMake build tree that can be configured and built again.</source>
        <translation>Ein ganzer Build-Ordner von CMake, der sich neu konfigurieren und bauen lässt.</translation>
    </message>
    <message>
        <source>A whole Meson build tree that can be set up and built again.</source>
        <translation>Ein ganzer Build-Ordner von Meson, der sich neu einrichten und bauen lässt.</translation>
    </message>
    <message>
        <source>CMake built it from the sources in %1.</source>
        <translation>CMake hat ihn aus den Quellen in %1 gebaut.</translation>
    </message>
    <message>
        <source>Cargo build output that can be built again.</source>
        <translation>Build-Ausgabe von Cargo, die sich neu bauen lässt.</translation>
    </message>
    <message>
        <source>Cargo wrote its build output here.</source>
        <translation>Cargo hat seine Build-Ausgabe hierher geschrieben.</translation>
    </message>
    <message>
        <source>It has no pyvenv.cfg, so it may not be a Python environment.</source>
        <translation>Es fehlt pyvenv.cfg; vielleicht ist es keine Python-Umgebung.</translation>
    </message>
    <message>
        <source>It holds a %1 repository of its own: %2</source>
        <translation>Enthält ein eigenes %1-Repository: %2</translation>
    </message>
    <message>
        <source>It holds a file that may be of value: %1</source>
        <translation>Enthält eine Datei, die wertvoll sein kann: %1</translation>
    </message>
    <message>
        <source>It holds a file that people write: %1</source>
        <translation>Enthält eine Datei, wie Menschen sie schreiben: %1</translation>
    </message>
    <message>
        <source>It holds a folder that may be of value: %1</source>
        <translation>Enthält einen Ordner, der wertvoll sein kann: %1</translation>
    </message>
    <message>
        <source>It is a project of its own: %1</source>
        <translation>Ist selbst ein Projekt: %1</translation>
    </message>
    <message>
        <source>It lies in a %1 working copy, and Broomtide can only ask Git: %2</source>
        <translation>Liegt in einer %1-Arbeitskopie, und Broomtide kann nur Git fragen: %2</translation>
    </message>
    <message>
        <source>It lies in a hidden folder of a home, where programs keep what they need: %1</source>
        <translation>Liegt in einem versteckten Ordner eines Benutzerordners, in dem Programme aufbewahren, was sie brauchen: %1</translation>
    </message>
    <message>
        <source>It lies in a place where programs are installed: %1</source>
        <translation>Liegt dort, wo Programme installiert sind: %1</translation>
    </message>
    <message>
        <source>Meson built it from the sources in %1.</source>
        <translation>Meson hat ihn aus den Quellen in %1 gebaut.</translation>
    </message>
    <message>
        <source>Something of value may have come into the item after the scan. Rescan before cleaning it.</source>
        <translation>Nach dem Scan ist vielleicht etwas Wertvolles in das Objekt gekommen. Scannen Sie vor der Bereinigung erneut.</translation>
    </message>
    <message>
        <source>The program that wrote it calls it a cache.</source>
        <translation>Das Programm, das ihn geschrieben hat, nennt ihn einen Cache.</translation>
    </message>
    <message>
        <source>The program that wrote it calls it a cache: %1</source>
        <translation>Das Programm, das ihn geschrieben hat, nennt ihn einen Cache: %1</translation>
    </message>
    <message>
        <source>The project around it is a home folder: %1</source>
        <translation>Das Projekt darum ist ein Benutzerordner: %1</translation>
    </message>
    <message>
        <source>Not all of it could be read: %1</source>
        <translation>Nicht alles darin war lesbar: %1</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::BusyIndicator</name>
    <message>
        <source>Scanning</source>
        <translation>Scan läuft</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::CandidateDetails</name>
    <message>
        <source>Project: %1</source>
        <translation>Projekt: %1</translation>
    </message>
    <message>
        <source>How to regenerate</source>
        <translation>So lässt es sich wiederherstellen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy the command</source>
        <translation>Den Befehl kopieren</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::CandidateMenu</name>
    <message>
        <source>Deselect</source>
        <translation>Abwählen</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Open Containing Folder</source>
        <translation>Übergeordneten Ordner öffnen</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Pfad kopieren</translation>
    </message>
    <message>
        <source>Copy Command</source>
        <translation>Befehl kopieren</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ConfirmationView</name>
    <message>
        <source>Items are moved to macOS Trash, not permanently deleted. Broomtide will validate every item again before moving it.</source>
        <translation>Die Objekte werden in den Papierkorb verschoben und nicht endgültig gelöscht. Broomtide prüft jedes Objekt vor dem Verschieben noch einmal.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Startseite</translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) totaling %1</source>
        <translation>
            <numerusform>%n Objekt mit insgesamt %1</numerusform>
            <numerusform>%n Objekte mit insgesamt %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of them with unusual characters in the path</source>
        <translation>
            <numerusform>%n davon mit ungewöhnlichen Zeichen im Pfad</numerusform>
            <numerusform>%n davon mit ungewöhnlichen Zeichen im Pfad</numerusform>
        </translation>
    </message>
    <message>
        <source>Moving…</source>
        <translation>Wird verschoben …</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>In den Papierkorb verschieben</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ContentView</name>
    <message>
        <source>Broomtide</source>
        <translation>Broomtide</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::HistoryView</name>
    <message numerus="yes">
        <source>%n item(s)</source>
        <translation>
            <numerusform>%n Objekt</numerusform>
            <numerusform>%n Objekte</numerusform>
        </translation>
    </message>
    <message>
        <source>Cleanup History</source>
        <translation>Bereinigungsverlauf</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::MainWindow</name>
    <message>
        <source>Broomtide</source>
        <translation>Broomtide</translation>
    </message>
    <message>
        <source>&amp;Broomtide</source>
        <translation>&amp;Broomtide</translation>
    </message>
    <message>
        <source>&amp;About Broomtide</source>
        <translation>&amp;Über Broomtide</translation>
    </message>
    <message>
        <source>Check for &amp;Updates…</source>
        <translation>Nach &amp;Updates suchen …</translation>
    </message>
    <message>
        <source>&amp;Settings…</source>
        <translation>&amp;Einstellungen …</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Broomtide &amp;Website</source>
        <translation>Broomtide-&amp;Website</translation>
    </message>
    <message>
        <source>&amp;Privacy Policy</source>
        <translation>&amp;Datenschutzerklärung</translation>
    </message>
    <message>
        <source>About Broomtide</source>
        <translation>Über Broomtide</translation>
    </message>
    <message>
        <source>Broomtide %1</source>
        <translation>Broomtide %1</translation>
    </message>
    <message>
        <source>Finds disposable developer files and moves them to the Trash.
Free software under the MIT licence.</source>
        <translation>Findet entbehrliche Entwicklerdateien und verschiebt sie in den Papierkorb.
Freie Software unter der MIT-Lizenz.</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ProjectList</name>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>newest disposable artifact %1</source>
        <translation>neuestes entbehrliches Artefakt: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n items</source>
        <translation>
            <numerusform>%n Objekt</numerusform>
            <numerusform>%n Objekte</numerusform>
        </translation>
    </message>
    <message>
        <source>Reclaimable by detected project</source>
        <translation>Freizugebender Platz nach erkanntem Projekt</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ResultsFooter</name>
    <message>
        <source>Move Selected to Trash</source>
        <translation>Auswahl in den Papierkorb verschieben</translation>
    </message>
    <message>
        <source>Rescan</source>
        <translation>Erneut scannen</translation>
    </message>
    <message numerus="yes">
        <source>%n of them hidden by the filter</source>
        <translation>
            <numerusform>%n davon ausgefiltert</numerusform>
            <numerusform>%n davon ausgefiltert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n selected</source>
        <translation>
            <numerusform>%n ausgewählt</numerusform>
            <numerusform>%n ausgewählt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ResultsHeader</name>
    <message>
        <source>Found</source>
        <translation>Gefunden</translation>
    </message>
    <message>
        <source>Selected</source>
        <translation>Ausgewählt</translation>
    </message>
    <message>
        <source>Scanned</source>
        <translation>Gescannt</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>Projekte</translation>
    </message>
    <message>
        <source>Matches</source>
        <translation>Treffer</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Startseite</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation>Filter leeren</translation>
    </message>
    <message>
        <source>Largest</source>
        <translation>Größte</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Oldest</source>
        <translation>Älteste</translation>
    </message>
    <message>
        <source>Sort</source>
        <translation>Sortierung</translation>
    </message>
    <message>
        <source>Review cleanup items</source>
        <translation>Objekte prüfen</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Cleanup Items</source>
        <translation>Objekte</translation>
    </message>
    <message>
        <source>By Project</source>
        <translation>Nach Projekt</translation>
    </message>
    <message>
        <source>Select Safe</source>
        <translation>Sichere auswählen</translation>
    </message>
    <message>
        <source>Unselect All</source>
        <translation>Auswahl aufheben</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ResultsList</name>
    <message>
        <source>Cleanup Items</source>
        <translation>Objekte</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ResultsModel</name>
    <message>
        <source>Select %1</source>
        <translation>%1 auswählen</translation>
    </message>
    <message numerus="yes">
        <source>And %n more…</source>
        <translation>
            <numerusform>Und %n weiteres …</numerusform>
            <numerusform>Und %n weitere …</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ResultsView</name>
    <message>
        <source>No matching items</source>
        <translation>Keine passenden Objekte</translation>
    </message>
    <message>
        <source>Nothing that was found matches the filter.</source>
        <translation>Nichts von dem, was gefunden wurde, passt zum Filter.</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ScanModeCard</name>
    <message>
        <source>Scan %1</source>
        <translation>%1 scannen</translation>
    </message>
    <message>
        <source>Choose Folder…</source>
        <translation>Ordner auswählen …</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ScanningView</name>
    <message>
        <source>folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Items scanned</source>
        <translation>Objekte gescannt</translation>
    </message>
    <message>
        <source>Reclaimable</source>
        <translation>Freizugeben</translation>
    </message>
    <message>
        <source>Matches</source>
        <translation>Treffer</translation>
    </message>
    <message>
        <source>Scanning %1</source>
        <translation>%1 wird gescannt</translation>
    </message>
    <message>
        <source>Back to Home</source>
        <translation>Zurück zur Startseite</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::SettingsPanel</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Broomtide</source>
        <translation>Broomtide</translation>
    </message>
    <message>
        <source>Scans stay on this Mac. Broomtide never uploads file names, paths, or scan results.</source>
        <translation>Scans bleiben auf diesem Computer. Broomtide lädt niemals Dateinamen, Pfade oder Scanergebnisse hoch.</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::SummaryView</name>
    <message>
        <source>Moved to Trash</source>
        <translation>In den Papierkorb verschoben</translation>
    </message>
    <message>
        <source>Items moved</source>
        <translation>Objekte verschoben</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Items that were left alone</source>
        <translation>Nicht angetastete Objekte</translation>
    </message>
    <message>
        <source>View History</source>
        <translation>Verlauf anzeigen</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::WelcomeView</name>
    <message>
        <source>View Cleanup History</source>
        <translation>Bereinigungsverlauf anzeigen</translation>
    </message>
    <message>
        <source>Broomtide</source>
        <translation>Broomtide</translation>
    </message>
    <message>
        <source>Free up space without breaking your projects.</source>
        <translation>Speicherplatz freigeben, ohne Ihre Projekte zu beschädigen.</translation>
    </message>
    <message>
        <source>Project Folder</source>
        <translation>Projektordner</translation>
    </message>
    <message>
        <source>Find build outputs, caches, and dependencies inside your repositories.</source>
        <translation>Findet Build-Ausgaben, Caches und Abhängigkeiten in Ihren Repositorys.</translation>
    </message>
    <message>
        <source>Developer Caches</source>
        <translation>Entwickler-Caches</translation>
    </message>
    <message>
        <source>Check Xcode DerivedData plus global npm, pip, Homebrew, Gradle, and Cargo caches.</source>
        <translation>Prüft Xcode DerivedData sowie die globalen Caches von npm, pip, Homebrew, Gradle und Cargo.</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Downloads</translation>
    </message>
    <message>
        <source>Surface old installers, archives, and screenshots that piled up.</source>
        <translation>Zeigt alte Installationsdateien, Archive und Bildschirmfotos, die sich angesammelt haben.</translation>
    </message>
    <message>
        <source>Local only</source>
        <translation>Nur lokal</translation>
    </message>
    <message>
        <source>No cloud upload</source>
        <translation>Kein Upload in die Cloud</translation>
    </message>
    <message>
        <source>Trash only</source>
        <translation>Nur in den Papierkorb</translation>
    </message>
    <message>
        <source>You review first</source>
        <translation>Sie prüfen zuerst</translation>
    </message>
</context>
</TS>
