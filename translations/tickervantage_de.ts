<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en_GB">
<context>
    <name>Texts</name>
    <message>
        <source>No history yet: it begins now, with a reading each few seconds. Leave this window open, and the last hour appears here.</source>
        <extracomment>main window: in place of the picture of the last hour</extracomment>
        <translation>Noch kein Verlauf: Er beginnt jetzt, mit einer Messung alle paar Sekunden. Lassen Sie dieses Fenster offen, dann erscheint hier die letzte Stunde.</translation>
    </message>
</context>
<context>
    <name>about</name>
    <message>
        <source>About Tickervantage</source>
        <extracomment>About box: title</extracomment>
        <translation>Über Tickervantage</translation>
    </message>
    <message>
        <source>Installs, configures, controls and monitors chrony, the NTP software, on this workstation.

Copyright © 2026 the Tickervantage developers. Free software under the MIT licence, without warranty.

chrony is a separate program under the GNU General Public License, version 2.</source>
        <extracomment>About box: what the program is, and its licence</extracomment>
        <translation>Installiert, konfiguriert, steuert und überwacht chrony, die NTP-Software, auf diesem Rechner.

Copyright © 2026 die Entwickler von Tickervantage. Freie Software unter der MIT-Lizenz, ohne Gewährleistung.

chrony ist ein eigenes Programm unter der GNU General Public License, Version 2.</translation>
    </message>
    <message>
        <source>The program&apos;s icon</source>
        <extracomment>About box: what a screen reader says of the picture</extracomment>
        <translation>Das Symbol des Programms</translation>
    </message>
</context>
<context>
    <name>administration</name>
    <message>
        <source>Helper install failed</source>
        <extracomment>alert: %1 is a sentence with the reason</extracomment>
        <translation>Installation des Root-Helfers fehlgeschlagen</translation>
    </message>
    <message>
        <source>Authorization cancelled by user</source>
        <extracomment>alert: message</extracomment>
        <translation>Autorisierung vom Benutzer abgebrochen</translation>
    </message>
    <message>
        <source>An admin login/password is required</source>
        <extracomment>alert: informative text</extracomment>
        <translation>Anmeldename und Passwort eines Administrators sind erforderlich</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <extracomment>button of an alert</extracomment>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Not in a demonstration: it leaves your system as it is</source>
        <extracomment>tooltip of a menu item that cannot be used in demonstration mode</extracomment>
        <translation>Nicht in einer Vorführung: Sie lässt Ihr System, wie es ist</translation>
    </message>
    <message>
        <source></source>
        <comment>main window: jobs that need administrator rights, and what is told of them while and after they run.</comment>
        <translation></translation>
    </message>
    <message>
        <source>Installing chrony software</source>
        <translation>chrony wird installiert</translation>
    </message>
    <message>
        <source>Removing chrony software</source>
        <translation>chrony wird entfernt</translation>
    </message>
    <message>
        <source>Starting chronyd daemon</source>
        <translation>chronyd wird gestartet</translation>
    </message>
    <message>
        <source>Stopping chronyd daemon</source>
        <translation>chronyd wird angehalten</translation>
    </message>
    <message>
        <source>Installing chronywake</source>
        <translation>chronywake wird installiert</translation>
    </message>
    <message>
        <source>Removing chronywake</source>
        <translation>chronywake wird entfernt</translation>
    </message>
    <message>
        <source>Running chronywake</source>
        <translation>chronywake wird ausgeführt</translation>
    </message>
    <message>
        <source>Installing the configuration</source>
        <translation>Die Konfiguration wird installiert</translation>
    </message>
    <message>
        <source>Rotating chrony&apos;s logs</source>
        <translation>Die Protokolle von chrony werden rotiert</translation>
    </message>
    <message>
        <source>Synchronising the clock</source>
        <translation>Die Uhr wird synchronisiert</translation>
    </message>
    <message>
        <source>%1…</source>
        <extracomment>main window, status line: %1 is a job that needs administrator rights and is under way</extracomment>
        <translation>%1 …</translation>
    </message>
    <message>
        <source>chronywake answered: %1</source>
        <translation>chronywake hat geantwortet: %1</translation>
    </message>
    <message>
        <source>Removed are these programs, with the services that run them and rotate their logs:
%1

The configuration %2 and the logs stay.

Nothing keeps the clock right afterwards, until chrony is installed again or another time service takes over.</source>
        <extracomment>question before chrony is removed: %1 are paths, one a line; %2 is the path of the configuration</extracomment>
        <translation>Entfernt werden diese Programme samt den Diensten, die sie ausführen und ihre Protokolle rotieren:
%1

Die Konfiguration %2 und die Protokolle bleiben.

Danach stellt nichts mehr die Uhr nach, bis chrony wieder installiert wird oder ein anderer Zeitdienst übernimmt.</translation>
    </message>
    <message>
        <source>Remove chrony from this computer?</source>
        <extracomment>question before chrony is removed</extracomment>
        <translation>chrony von diesem Rechner entfernen?</translation>
    </message>
    <message>
        <source>Remove</source>
        <extracomment>buttons of that question</extracomment>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Bring back this configuration?</source>
        <extracomment>question before a former configuration is installed again</extracomment>
        <translation>Diese Konfiguration zurückholen?</translation>
    </message>
    <message>
        <source>Configuration file %1 will be overwritten and chronyd will be restarted.

What is installed now stays in the list.</source>
        <extracomment>question before a former configuration is installed again: %1 is a path</extracomment>
        <translation>Die Konfigurationsdatei %1 wird überschrieben und chronyd neu gestartet.

Was jetzt installiert ist, bleibt in der Liste.</translation>
    </message>
    <message>
        <source>Bring Back</source>
        <extracomment>buttons of that question</extracomment>
        <translation>Zurückholen</translation>
    </message>
    <message>
        <source>Bringing back a configuration</source>
        <translation>Eine Konfiguration wird zurückgeholt</translation>
    </message>
    <message>
        <source>Restarting chronyd daemon</source>
        <translation>chronyd wird neu gestartet</translation>
    </message>
    <message>
        <source>Installing the compensation</source>
        <translation>Kompensation wird installiert</translation>
    </message>
    <message>
        <source>Taking back the compensation</source>
        <translation>Kompensation wird zurückgenommen</translation>
    </message>
</context>
<context>
    <name>alarms</name>
    <message>
        <source></source>
        <comment>What is wrong with the clock, in a notification of the desktop and in a bar of the main window. %1 stands for a number with its unit.</comment>
        <translation></translation>
    </message>
    <message>
        <source>chronyd does not answer: nothing keeps the clock right.</source>
        <translation>chronyd antwortet nicht: Nichts hält die Uhr richtig.</translation>
    </message>
    <message>
        <source>No time source has kept the clock right for %1.</source>
        <translation>Seit %1 hält keine Zeitquelle die Uhr richtig.</translation>
    </message>
    <message>
        <source>The clock can be off by up to %1.</source>
        <translation>Die Uhr kann um bis zu %1 falsch gehen.</translation>
    </message>
    <message>
        <source>%1 time sources contradict each other, so none is used.</source>
        <translation>%1 Zeitquellen widersprechen sich, deshalb wird keine benutzt.</translation>
    </message>
    <message>
        <source>None of the time sources can be used.</source>
        <translation>Keine der Zeitquellen ist brauchbar.</translation>
    </message>
    <message>
        <source>Only %1 of the time sources can be used: nothing would tell if it were wrong.</source>
        <translation>Nur %1 der Zeitquellen ist brauchbar: Nichts würde zeigen, wenn sie falsch ginge.</translation>
    </message>
    <message>
        <source>The clock was off by %1, and was set.</source>
        <translation>Die Uhr ging um %1 falsch und wurde gestellt.</translation>
    </message>
    <message>
        <source>chronyd does not answer</source>
        <translation>chronyd antwortet nicht</translation>
    </message>
    <message>
        <source>No time source for longer than</source>
        <translation>Keine Zeitquelle länger als</translation>
    </message>
    <message>
        <source>The clock can be off by more than</source>
        <translation>Die Uhr kann um mehr falsch gehen als</translation>
    </message>
    <message>
        <source>The time sources contradict each other</source>
        <translation>Die Zeitquellen widersprechen sich</translation>
    </message>
    <message>
        <source>Fewer usable time sources than</source>
        <translation>Weniger brauchbare Zeitquellen als</translation>
    </message>
    <message>
        <source>The clock was set by more than</source>
        <translation>Die Uhr wurde gestellt um mehr als</translation>
    </message>
</context>
<context>
    <name>alerts</name>
    <message>
        <source>Do not show this again</source>
        <extracomment>check box of an alert</extracomment>
        <translation>Nicht wieder anzeigen</translation>
    </message>
</context>
<context>
    <name>application</name>
    <message>
        <source>Meridianox could not be started.</source>
        <extracomment>alert: the sibling application could not be started</extracomment>
        <translation>Meridianox konnte nicht gestartet werden.</translation>
    </message>
    <message>
        <source>Open Tracking Log</source>
        <extracomment>title of the dialog that opens a tracking log</extracomment>
        <translation>Tracking-Protokoll öffnen</translation>
    </message>
    <message>
        <source>The log cannot be shown here. It lies in %1.</source>
        <extracomment>alert: %1 is a folder</extracomment>
        <translation>Das Protokoll kann hier nicht angezeigt werden. Es liegt in %1.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be shown here.</source>
        <extracomment>alert: %1 is a folder</extracomment>
        <translation>Der Ordner %1 kann hier nicht angezeigt werden.</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <extracomment>button of an alert</extracomment>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Quit</source>
        <extracomment>button of the alert that ends the program</extracomment>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>The program could not be started again. Please quit it, and start it without --demo.</source>
        <extracomment>alert: the program could not be started once more, without the demonstration</extracomment>
        <translation>Das Programm ließ sich nicht neu starten. Bitte beenden Sie es und starten Sie es ohne --demo.</translation>
    </message>
</context>
<context>
    <name>budget</name>
    <message>
        <source>Correction %1</source>
        <extracomment>part of the error bound: what is being corrected now; %1 is a time such as 12 µs</extracomment>
        <translation>Korrektur %1</translation>
    </message>
    <message>
        <source>Half the delay %1</source>
        <extracomment>part of the error bound: half of the delay on the way to the reference clock; %1 is a time</extracomment>
        <translation>Halbe Laufzeit %1</translation>
    </message>
    <message>
        <source>Measured %1</source>
        <extracomment>part of the error bound: what the servers and the measurements leave open; %1 is a time</extracomment>
        <translation>Gemessen %1</translation>
    </message>
    <message>
        <source>Grown since %1</source>
        <extracomment>part of the error bound: what was added since the last measurement; %1 is a time</extracomment>
        <translation>Seither gewachsen %1</translation>
    </message>
    <message>
        <source>What the error bound is made of</source>
        <extracomment>main window: title of the bar that shows what the error bound is made of</extracomment>
        <translation>Woraus die Fehlergrenze besteht</translation>
    </message>
</context>
<context>
    <name>clock_events</name>
    <message>
        <source></source>
        <comment>What happened to the clock, beside its time: one sentence each. %1, %2 stand for addresses, numbers with their units, or the words of chronyd.</comment>
        <translation></translation>
    </message>
    <message>
        <source>chronyd chose %1 to follow.</source>
        <translation>chronyd wählte %1, um ihr zu folgen.</translation>
    </message>
    <message>
        <source>%1 disagreed with the other sources and was not believed.</source>
        <translation>%1 widersprach den anderen Quellen; ihr wurde nicht geglaubt.</translation>
    </message>
    <message>
        <source>chronyd stepped the clock by %1.</source>
        <translation>chronyd stellte die Uhr sprunghaft um %1.</translation>
    </message>
    <message>
        <source>chronyd was started.</source>
        <translation>chronyd wurde gestartet.</translation>
    </message>
    <message>
        <source>chronyd ended.</source>
        <translation>chronyd wurde beendet.</translation>
    </message>
    <message>
        <source>The sources disagreed without a majority: none was followed.</source>
        <translation>Die Quellen widersprachen sich ohne Mehrheit: keiner wurde gefolgt.</translation>
    </message>
    <message>
        <source>Time jumped forward: the machine slept, or its clock was set.</source>
        <translation>Die Zeit sprang vor: Der Rechner schlief, oder seine Uhr wurde gestellt.</translation>
    </message>
    <message>
        <source>Time jumped backward: the clock was set.</source>
        <translation>Die Zeit sprang zurück: Die Uhr wurde gestellt.</translation>
    </message>
    <message>
        <source>The machine was started.</source>
        <translation>Der Rechner wurde gestartet.</translation>
    </message>
    <message>
        <source>The machine went to sleep.</source>
        <translation>Der Rechner ging in den Ruhezustand.</translation>
    </message>
    <message>
        <source>The time of the records went back by %1.</source>
        <translation>Die Zeit der Einträge sprang um %1 zurück.</translation>
    </message>
    <message>
        <source>Nothing was logged for %1, where a record every %2 was usual.</source>
        <translation>%1 lang wurde nichts protokolliert; üblich war ein Eintrag alle %2.</translation>
    </message>
    <message>
        <source>No source was followed any more; the last one was %1.</source>
        <translation>Keiner Quelle wurde mehr gefolgt; die letzte war %1.</translation>
    </message>
    <message>
        <source>No source was followed for %2; the last one was %1.</source>
        <translation>%2 lang wurde keiner Quelle gefolgt; die letzte war %1.</translation>
    </message>
    <message>
        <source>%1 was followed from now on, instead of %2.</source>
        <translation>Von nun an wurde %1 gefolgt statt %2.</translation>
    </message>
    <message>
        <source>A leap second was announced: one more at the end of the month.</source>
        <translation>Eine Schaltsekunde wurde angekündigt: eine mehr am Monatsende.</translation>
    </message>
    <message>
        <source>A leap second was announced: one less at the end of the month.</source>
        <translation>Eine Schaltsekunde wurde angekündigt: eine weniger am Monatsende.</translation>
    </message>
    <message>
        <source>The frequency of the clock jumped by %1.</source>
        <translation>Die Frequenz der Uhr sprang um %1.</translation>
    </message>
</context>
<context>
    <name>commands</name>
    <message>
        <source></source>
        <comment>main window: what a report of chronyc shows, a tooltip in the menu of reports.</comment>
        <translation></translation>
    </message>
    <message>
        <source>How the system clock is doing</source>
        <translation>Wie es der Systemuhr geht</translation>
    </message>
    <message>
        <source>The time sources</source>
        <translation>Die Zeitquellen</translation>
    </message>
    <message>
        <source>The time sources, with the columns explained</source>
        <translation>Die Zeitquellen, mit Erklärung der Spalten</translation>
    </message>
    <message>
        <source>Drift rate and offset of each source</source>
        <translation>Drift und Abweichung jeder Quelle</translation>
    </message>
    <message>
        <source>Drift rate and offset of each source, with the columns explained</source>
        <translation>Drift und Abweichung jeder Quelle, mit Erklärung der Spalten</translation>
    </message>
    <message>
        <source>How many sources are online and offline</source>
        <translation>Wie viele Quellen erreichbar und nicht erreichbar sind</translation>
    </message>
    <message>
        <source>Authentication of the sources (needs administrator rights)</source>
        <translation>Authentifizierung der Quellen (braucht Administratorrechte)</translation>
    </message>
    <message>
        <source>The last valid measurement of each NTP source (needs administrator rights)</source>
        <translation>Die letzte gültige Messung jeder NTP-Quelle (braucht Administratorrechte)</translation>
    </message>
    <message>
        <source>How the sources were selected (needs administrator rights)</source>
        <translation>Wie die Quellen ausgewählt wurden (braucht Administratorrechte)</translation>
    </message>
    <message>
        <source>Clients that asked this machine for the time (needs administrator rights)</source>
        <translation>Clients, die diesen Rechner nach der Zeit gefragt haben (braucht Administratorrechte)</translation>
    </message>
    <message>
        <source>The real-time clock</source>
        <translation>Die Echtzeituhr</translation>
    </message>
    <message>
        <source>Smoothing of the time served to clients</source>
        <translation>Glättung der Zeit, die Clients erhalten</translation>
    </message>
    <message>
        <source>Times that were entered by hand</source>
        <translation>Von Hand eingegebene Zeiten</translation>
    </message>
    <message>
        <source>Versions of chronyd, chronyc and their libraries</source>
        <translation>Versionen von chronyd, chronyc und ihren Bibliotheken</translation>
    </message>
    <message>
        <source>Counts of the requests this machine answered or dropped (needs administrator rights)</source>
        <translation>Zahl der Anfragen, die dieser Rechner beantwortet oder verworfen hat (erfordert Administratorrechte)</translation>
    </message>
</context>
<context>
    <name>compensation</name>
    <message>
        <source></source>
        <comment>The questions about chronyd&apos;s compensation for the temperature: what it would gain, and whether it is installed.</comment>
        <translation></translation>
    </message>
    <message>
        <source>Within a day the frequency goes up and down by %1 ppm. On days that the compensation was not made of, %2 ppm of that would be left.</source>
        <extracomment>compensation: %1 and %2 are numbers</extracomment>
        <translation>Innerhalb eines Tages schwankt die Frequenz um %1 ppm. An Tagen, aus denen die Kompensation nicht gewonnen wurde, blieben davon %2 ppm.</translation>
    </message>
    <message>
        <source>That is %1 times steadier (%2 to %3, with 95 % certainty).</source>
        <extracomment>compensation: %1 to %3 are numbers such as 4.2</extracomment>
        <translation>Das ist %1-mal so ruhig (%2- bis %3-mal, mit 95 % Sicherheit).</translation>
    </message>
    <message>
        <source>An hour without time sources: typically %1 off instead of %2.</source>
        <extracomment>compensation: %1 and %2 are times such as 430 µs</extracomment>
        <translation>Eine Stunde ohne Zeitquellen: üblicherweise %1 Abweichung statt %2.</translation>
    </message>
    <message>
        <source>chronyd is restarted. If it does not run with the compensation, what there was comes back.</source>
        <extracomment>compensation: last sentences of the question</extracomment>
        <translation>chronyd wird neu gestartet. Läuft es mit der Kompensation nicht, so kommt zurück, was vorher da war.</translation>
    </message>
    <message>
        <source>The compensation that is installed now is replaced.</source>
        <extracomment>compensation: last sentence of the question</extracomment>
        <translation>Die Kompensation, die jetzt installiert ist, wird ersetzt.</translation>
    </message>
    <message>
        <source>Compensate for the temperature of %1?</source>
        <extracomment>compensation: question, %1 is a sensor</extracomment>
        <translation>Die Temperatur von %1 kompensieren?</translation>
    </message>
    <message>
        <source>Install</source>
        <extracomment>compensation: button</extracomment>
        <translation>Installieren</translation>
    </message>
    <message>
        <source>Take Back</source>
        <extracomment>compensation: button, removes the installed compensation</extracomment>
        <translation>Zurücknehmen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <extracomment>compensation: button</extracomment>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>No point of the sensors shown says when it was read. Keep this window open for some days, with chronyd running.</source>
        <extracomment>compensation: where there is nothing to work with</extracomment>
        <translation>Kein Punkt der gezeigten Sensoren sagt, wann er abgelesen wurde. Lassen Sie dieses Fenster einige Tage offen, während chronyd läuft.</translation>
    </message>
    <message>
        <source>A demonstration leaves the system as it is, so nothing can be installed.</source>
        <extracomment>compensation: in a demonstration</extracomment>
        <translation>Eine Vorführung lässt das System, wie es ist; daher kann nichts installiert werden.</translation>
    </message>
    <message>
        <source>A compensation would help, but cannot be installed here.</source>
        <extracomment>compensation: alert</extracomment>
        <translation>Eine Kompensation würde helfen, kann hier aber nicht installiert werden.</translation>
    </message>
    <message>
        <source>A compensation for the temperature is not advised.</source>
        <translation>Von einer Kompensation der Temperatur wird abgeraten.</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <extracomment>compensation: button that closes the alert</extracomment>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Take back the compensation for the temperature?</source>
        <extracomment>compensation: question</extracomment>
        <translation>Die Kompensation der Temperatur zurücknehmen?</translation>
    </message>
    <message>
        <source>chronyd is restarted without it. The points of the window stay, so that it can be installed again.</source>
        <extracomment>compensation: second sentence of that question</extracomment>
        <translation>chronyd wird ohne sie neu gestartet. Die Punkte des Fensters bleiben, sodass sie wieder installiert werden kann.</translation>
    </message>
    <message>
        <source>chronyd compensates for the temperature now. The Laboratory window shows after a day what that gained.</source>
        <extracomment>compensation: after it was installed</extracomment>
        <translation>chronyd kompensiert jetzt die Temperatur. Das Fenster „Uhrenlabor“ zeigt nach einem Tag, was das gebracht hat.</translation>
    </message>
    <message>
        <source>chronyd runs without a compensation for the temperature now.</source>
        <extracomment>compensation: after it was taken back</extracomment>
        <translation>chronyd läuft jetzt ohne Kompensation der Temperatur.</translation>
    </message>
</context>
<context>
    <name>configeditor</name>
    <message>
        <source>Not checked</source>
        <extracomment>configuration editor: state of the text</extracomment>
        <translation>Nicht geprüft</translation>
    </message>
    <message>
        <source>Syntax OK</source>
        <extracomment>configuration editor: state of the text</extracomment>
        <translation>Syntax in Ordnung</translation>
    </message>
    <message>
        <source>Syntax error</source>
        <extracomment>configuration editor: state of the text</extracomment>
        <translation>Syntaxfehler</translation>
    </message>
    <message>
        <source>&amp;Check</source>
        <extracomment>configuration editor: button, checks the text</extracomment>
        <translation>&amp;Prüfen</translation>
    </message>
    <message>
        <source>Let chronyd check the syntax (Ctrl+Return)</source>
        <extracomment>configuration editor: tooltip</extracomment>
        <translation>chronyd die Syntax prüfen lassen (Strg+Eingabe)</translation>
    </message>
    <message>
        <source>&amp;Install…</source>
        <extracomment>configuration editor: button, installs the text</extracomment>
        <translation>&amp;Installieren …</translation>
    </message>
    <message>
        <source>Make this the live configuration; it must have passed a check</source>
        <extracomment>configuration editor: tooltip</extracomment>
        <translation>Zur gültigen Konfiguration machen; der Text muss geprüft und in Ordnung sein</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>configuration editor: button, opens chrony&apos;s page</extracomment>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>What the directives mean, on chrony&apos;s own page</source>
        <extracomment>configuration editor: tooltip</extracomment>
        <translation>Was die Direktiven bedeuten, auf der Handbuchseite von chrony</translation>
    </message>
    <message>
        <source>State of the check</source>
        <extracomment>configuration editor: name of the words beside the Check button</extracomment>
        <translation>Ergebnis der Prüfung</translation>
    </message>
    <message>
        <source>Message</source>
        <extracomment>configuration editor: name of the line that says what went on last</extracomment>
        <translation>Meldung</translation>
    </message>
    <message>
        <source>Warnings</source>
        <extracomment>configuration editor: name of the list of warnings</extracomment>
        <translation>Warnungen</translation>
    </message>
    <message>
        <source>What a syntax check does not see; choose one to see its line</source>
        <extracomment>configuration editor: tooltip of that list</extracomment>
        <translation>Was eine Syntaxprüfung nicht sieht; eine Warnung auswählen, um ihre Zeile zu sehen</translation>
    </message>
    <message>
        <source>Find</source>
        <extracomment>find bar: the field with the words looked for</extracomment>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Replace with</source>
        <extracomment>find bar: the field with the words put in their place</extracomment>
        <translation>Ersetzen durch</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <extracomment>find bar: button and tooltip</extracomment>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>Find the next place (Return, F3)</source>
        <extracomment>find bar: tooltip</extracomment>
        <translation>Nächste Fundstelle suchen (Eingabe, F3)</translation>
    </message>
    <message>
        <source>Pre&amp;vious</source>
        <extracomment>find bar: button and tooltip</extracomment>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>Find the place before (Shift+F3)</source>
        <extracomment>find bar: tooltip</extracomment>
        <translation>Vorige Fundstelle suchen (Umschalt+F3)</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <extracomment>find bar: button and tooltip</extracomment>
        <translation>&amp;Ersetzen</translation>
    </message>
    <message>
        <source>Replace this place and find the next</source>
        <extracomment>find bar: tooltip</extracomment>
        <translation>Diese Fundstelle ersetzen und die nächste suchen</translation>
    </message>
    <message>
        <source>Replace &amp;All</source>
        <extracomment>find bar: button and tooltip</extracomment>
        <translation>A&amp;lle ersetzen</translation>
    </message>
    <message>
        <source>Replace every place</source>
        <extracomment>find bar: tooltip</extracomment>
        <translation>Alle Fundstellen ersetzen</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <extracomment>find bar: button and tooltip</extracomment>
        <translation>&amp;Fertig</translation>
    </message>
    <message>
        <source>Close the find bar (Escape)</source>
        <extracomment>find bar: tooltip</extracomment>
        <translation>Suchleiste schließen (Esc)</translation>
    </message>
    <message>
        <source>&amp;Match case</source>
        <extracomment>find bar: check box</extracomment>
        <translation>&amp;Groß-/Kleinschreibung beachten</translation>
    </message>
    <message>
        <source>Not found</source>
        <extracomment>find bar: said when the words are nowhere in the text, and when the search began again at the other end
----------
find bar: said after Replace All; %1 is a number</extracomment>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>From the other end</source>
        <extracomment>find bar: said when the search began again at the other end of the text</extracomment>
        <translation>Vom anderen Ende her</translation>
    </message>
    <message>
        <source>%1 replaced</source>
        <extracomment>find bar: said after Replace All; %1 is the number of places</extracomment>
        <translation>%1 ersetzt</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <extracomment>button of a sheet</extracomment>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>The daemon may still have trouble with it:</source>
        <extracomment>syntax sheet: above the warnings</extracomment>
        <translation>Der Daemon kann dennoch Schwierigkeiten damit haben:</translation>
    </message>
    <message>
        <source>and %1 more, listed in the window.</source>
        <extracomment>syntax sheet: below the first warnings; %1 is a number</extracomment>
        <translation>und %1 weitere, die im Fenster stehen.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <extracomment>warning of the configuration editor: %1 a line number, %2 a sentence</extracomment>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>Chrony configuration file syntax OK</source>
        <extracomment>syntax sheet: message</extracomment>
        <translation>Syntax der chrony-Konfiguration in Ordnung</translation>
    </message>
    <message>
        <source>Config file syntax is OK and is suitable for installation</source>
        <extracomment>syntax sheet: informative text</extracomment>
        <translation>Die Syntax der Konfigurationsdatei ist in Ordnung; sie kann installiert werden</translation>
    </message>
    <message>
        <source>The line is one of the file %1.</source>
        <extracomment>syntax sheet: the error lies in another file; %1 its path</extracomment>
        <translation>Die Zeile steht in der Datei %1.</translation>
    </message>
    <message>
        <source>Chrony configuration file syntax error</source>
        <extracomment>syntax sheet: message</extracomment>
        <translation>Syntaxfehler in der chrony-Konfiguration</translation>
    </message>
    <message>
        <source>Chrony configuration file could not be checked</source>
        <extracomment>syntax sheet: message, when chronyd found no error in a line but refuses the file</extracomment>
        <translation>Die chrony-Konfiguration konnte nicht geprüft werden</translation>
    </message>
    <message>
        <source>Configuration file %1 will be overwritten and chronyd will be restarted

This cannot be undone
OK to proceed or Cancel to abort the installation
</source>
        <extracomment>Install config warning; %1 is a path</extracomment>
        <translation>Die Konfigurationsdatei %1 wird überschrieben und chronyd neu gestartet.

Das kann nicht rückgängig gemacht werden.
OK fährt fort, Abbrechen bricht die Installation ab.
</translation>
    </message>
    <message>
        <source>Installing new Chrony configuration</source>
        <extracomment>install sheet: message</extracomment>
        <translation>Neue chrony-Konfiguration installieren</translation>
    </message>
    <message>
        <source>OK</source>
        <extracomment>install sheet: button</extracomment>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <extracomment>install sheet: button
----------
unsaved changes: button</extracomment>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Save the changes to “%1”?</source>
        <extracomment>unsaved changes: %1 is the document&apos;s name</extracomment>
        <translation>Änderungen an „%1“ speichern?</translation>
    </message>
    <message>
        <source>They are lost if you do not save them.</source>
        <extracomment>unsaved changes</extracomment>
        <translation>Sie gehen verloren, wenn Sie sie nicht speichern.</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <extracomment>unsaved changes: button</extracomment>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>&amp;Don&apos;t Save</source>
        <extracomment>unsaved changes: button</extracomment>
        <translation>&amp;Nicht speichern</translation>
    </message>
    <message>
        <source>The file was changed by another program</source>
        <extracomment>file changed on the disk: message</extracomment>
        <translation>Die Datei wurde von einem anderen Programm geändert</translation>
    </message>
    <message>
        <source>%1 is no longer as it was when it was opened. Overwriting it loses the other changes, reloading it loses yours.</source>
        <extracomment>file changed on the disk: %1 is a path</extracomment>
        <translation>%1 ist nicht mehr so wie beim Öffnen. Beim Überschreiben gehen die anderen Änderungen verloren, beim Neuladen Ihre eigenen.</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <extracomment>file changed on the disk: buttons</extracomment>
        <translation>Speichern &amp;unter …</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <extracomment>file changed on the disk: button, the text replaces the file</extracomment>
        <translation>Ü&amp;berschreiben</translation>
    </message>
    <message>
        <source>&amp;Reload</source>
        <extracomment>file changed on the disk: button, the file replaces the text</extracomment>
        <translation>Neu &amp;laden</translation>
    </message>
    <message>
        <source>Line numbers</source>
        <extracomment>configuration editor: name of the column beside the text</extracomment>
        <translation>Zeilennummern</translation>
    </message>
    <message>
        <source>Configuration text</source>
        <extracomment>configuration editor: name of the text</extracomment>
        <translation>Text der Konfiguration</translation>
    </message>
    <message numerus="yes">
        <source>%n configuration(s) had not been saved when the program ended</source>
        <extracomment>kept edits: message; configurations that were being edited when the program ended</extracomment>
        <translation>
            <numerusform>%n Konfiguration war nicht gespeichert, als das Programm endete</numerusform>
            <numerusform>%n Konfigurationen waren nicht gespeichert, als das Programm endete</numerusform>
        </translation>
    </message>
    <message>
        <source>The edits were kept. Do you want to go on with them?</source>
        <extracomment>kept edits: below the names or paths of the configurations</extracomment>
        <translation>Die Änderungen wurden aufbewahrt. Möchten Sie daran weiterarbeiten?</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <extracomment>kept edits: button, opens them in the editor</extracomment>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <extracomment>kept edits: button, the edits are lost</extracomment>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <extracomment>kept edits: button, the same question comes with the next start</extracomment>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>There is no configuration in that place yet.</source>
        <extracomment>install sheet: below the question</extracomment>
        <translation>An dieser Stelle gibt es noch keine Konfiguration.</translation>
    </message>
    <message>
        <source>What is installed now is kept: “Former Configurations…” in the menu “Chrony” of the main window shows it and brings it back.</source>
        <extracomment>install sheet: below the question; “Former Configurations…” and “Chrony” are an item and a menu</extracomment>
        <translation>Was jetzt installiert ist, wird aufbewahrt: „Frühere Konfigurationen …“ im Menü „Chrony“ des Hauptfensters zeigt es und holt es zurück.</translation>
    </message>
    <message>
        <source>What would change cannot be shown: %1.</source>
        <extracomment>install sheet: below the question; %1 is a reason, such as &quot;Permission denied&quot;</extracomment>
        <translation>Was sich ändern würde, lässt sich nicht zeigen: %1.</translation>
    </message>
    <message>
        <source>Nothing would change: this is what is installed.</source>
        <extracomment>install sheet: below the question</extracomment>
        <translation>Es würde sich nichts ändern: Das ist, was installiert ist.</translation>
    </message>
    <message>
        <source>What would change:</source>
        <extracomment>install sheet: above the lines that differ</extracomment>
        <translation>Was sich ändern würde:</translation>
    </message>
    <message>
        <source>Completions</source>
        <extracomment>configuration editor: name of the list of directives, or of a directive&apos;s options</extracomment>
        <translation>Ergänzungen</translation>
    </message>
</context>
<context>
    <name>configmenus</name>
    <message>
        <source></source>
        <comment>configuration editor: menus and their items. The letter after an ampersand is the one that chooses the item together with Alt.</comment>
        <translation></translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>Open &amp;Installed Configuration</source>
        <translation>&amp;Installierte Konfiguration öffnen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter …</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>A&amp;usschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>E&amp;infügen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>Alles &amp;auswählen</translation>
    </message>
    <message>
        <source>&amp;Find and Replace…</source>
        <translation>&amp;Suchen und ersetzen …</translation>
    </message>
    <message>
        <source>Find &amp;Next</source>
        <translation>&amp;Nächste Fundstelle</translation>
    </message>
    <message>
        <source>Find Pre&amp;vious</source>
        <translation>&amp;Vorige Fundstelle</translation>
    </message>
    <message>
        <source>Complete &amp;Directive</source>
        <translation>&amp;Direktive vervollständigen</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>&amp;Normal Size</source>
        <translation>&amp;Normale Größe</translation>
    </message>
    <message>
        <source>&amp;Check Syntax</source>
        <translation>Syntax &amp;prüfen</translation>
    </message>
    <message>
        <source>&amp;Install…</source>
        <translation>&amp;Installieren …</translation>
    </message>
    <message>
        <source>&amp;Help on Directives</source>
        <translation>&amp;Hilfe zu Direktiven</translation>
    </message>
    <message>
        <source>None</source>
        <extracomment>menu of recent files, when there are none</extracomment>
        <translation>Keine</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <extracomment>configuration editor: titles of the menus</extracomment>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Chron&amp;y</source>
        <translation>Chron&amp;y</translation>
    </message>
    <message>
        <source>Inclu&amp;ded Files</source>
        <translation>Ein&amp;gebundene Dateien</translation>
    </message>
</context>
<context>
    <name>configwindows</name>
    <message>
        <source>Untitled %1</source>
        <extracomment>title of a new configuration; %1 is a number</extracomment>
        <translation>Unbenannt %1</translation>
    </message>
    <message>
        <source>Open Configuration</source>
        <extracomment>title of the dialog that opens a configuration</extracomment>
        <translation>Konfiguration öffnen</translation>
    </message>
    <message>
        <source>Its path stands in the preferences. Where chrony is not installed yet, the main window offers to install it.</source>
        <extracomment>alert below the reason why the installed configuration does not open</extracomment>
        <translation>Ihr Pfad steht in den Einstellungen. Wo chrony noch nicht installiert ist, bietet das Hauptfenster an, es zu installieren.</translation>
    </message>
</context>
<context>
    <name>daemonmenu</name>
    <message>
        <source>This &amp;Machine</source>
        <extracomment>menu of the machines whose clock can be shown</extracomment>
        <translation>Dieser &amp;Rechner</translation>
    </message>
    <message>
        <source>&amp;Other Machines…</source>
        <extracomment>menu of the machines whose clock can be shown: opens the list of them</extracomment>
        <translation>&amp;Andere Rechner…</translation>
    </message>
    <message>
        <source>Add machines whose clocks are to be shown here, or remove some</source>
        <extracomment>tooltip of that item</extracomment>
        <translation>Rechner hinzufügen oder entfernen, deren Uhren hier gezeigt werden sollen</translation>
    </message>
    <message>
        <source>Show the clock of this machine</source>
        <extracomment>tooltip of the item that shows this machine&apos;s clock again</extracomment>
        <translation>Die Uhr dieses Rechners zeigen</translation>
    </message>
    <message>
        <source>Show the clock of that machine; nothing is changed there</source>
        <extracomment>tooltip of an item with another machine</extracomment>
        <translation>Die Uhr jenes Rechners zeigen; geändert wird dort nichts</translation>
    </message>
    <message>
        <source>The window shows %1, which is only read. Choose “This Machine” in the menu Daemon first.</source>
        <extracomment>tooltip of a menu item that cannot be used while another machine&apos;s clock is shown; %1 is that machine</extracomment>
        <translation>Das Fenster zeigt %1, und dort wird nur gelesen. Wählen Sie zuerst „Dieser Rechner“ im Menü „Daemon“.</translation>
    </message>
</context>
<context>
    <name>demonstration</name>
    <message>
        <source>&amp;Pull Out Server %1</source>
        <extracomment>menu of a demonstration: ends one of its servers; %1 is its address</extracomment>
        <translation>Server %1 a&amp;bziehen</translation>
    </message>
    <message>
        <source>Another server takes over within seconds; once more puts it back</source>
        <extracomment>tooltip of that item</extracomment>
        <translation>Binnen Sekunden übernimmt ein anderer Server; noch einmal steckt ihn wieder ein</translation>
    </message>
    <message>
        <source>Pull Out &amp;All Servers</source>
        <extracomment>menu of a demonstration: ends all of its servers</extracomment>
        <translation>&amp;Alle Server abziehen</translation>
    </message>
    <message>
        <source>The clock then runs on by itself, and the error bound grows; once more puts them back</source>
        <extracomment>tooltip of that item</extracomment>
        <translation>Die Uhr läuft dann allein weiter, und die Fehlerschranke wächst; noch einmal steckt sie wieder ein</translation>
    </message>
    <message>
        <source>Demonstration: you see a chronyd that this program started for itself, on this machine alone. It follows three more and leaves your clock as it is. The day before it began is a recording.</source>
        <extracomment>banner of demonstration mode</extracomment>
        <translation>Vorführung: Sie sehen einen chronyd, den dieses Programm für sich gestartet hat, allein auf diesem Rechner. Er folgt drei weiteren und lässt Ihre Uhr, wie sie ist. Der Tag vor ihrem Beginn ist eine Aufnahme.</translation>
    </message>
</context>
<context>
    <name>difference</name>
    <message>
        <source>Difference</source>
        <extracomment>configurations: name of the text that shows the lines that differ</extracomment>
        <translation>Unterschied</translation>
    </message>
    <message>
        <source>Lines that would go begin with −, lines that would come with +</source>
        <extracomment>configurations: tooltip of that text</extracomment>
        <translation>Zeilen, die wegfielen, beginnen mit −, Zeilen, die hinzukämen, mit +</translation>
    </message>
    <message>
        <source>and %1 more lines</source>
        <extracomment>configurations: below the first of the lines that differ; %1 is a number</extracomment>
        <translation>und %1 weitere Zeilen</translation>
    </message>
</context>
<context>
    <name>directives</name>
    <message>
        <source></source>
        <comment>configuration editor: what a directive of chrony.conf does, beside its name in the list of directives.</comment>
        <translation></translation>
    </message>
    <message>
        <source>UDP port that requests to servers are sent from</source>
        <translation>UDP-Port, von dem Anfragen an Server ausgehen</translation>
    </message>
    <message>
        <source>Clients that may ask this machine for the time</source>
        <translation>Clients, die diesen Rechner nach der Zeit fragen dürfen</translation>
    </message>
    <message>
        <source>How much sources without authentication count</source>
        <translation>Wie viel Quellen ohne Authentifizierung gelten</translation>
    </message>
    <message>
        <source>Local address that requests to servers leave by</source>
        <translation>Lokale Adresse, von der Anfragen an Server ausgehen</translation>
    </message>
    <message>
        <source>Network interface that requests to servers leave by</source>
        <translation>Netzwerkschnittstelle, von der Anfragen an Server ausgehen</translation>
    </message>
    <message>
        <source>Local address on which clients are served</source>
        <translation>Lokale Adresse, unter der Clients bedient werden</translation>
    </message>
    <message>
        <source>Local address or socket on which chronyc is answered</source>
        <translation>Lokale Adresse oder Socket, wo chronyc Antwort erhält</translation>
    </message>
    <message>
        <source>Network interface on which chronyc is answered</source>
        <translation>Netzwerkschnittstelle, auf der chronyc Antwort erhält</translation>
    </message>
    <message>
        <source>Network interface on which clients are served</source>
        <translation>Netzwerkschnittstelle, auf der Clients bedient werden</translation>
    </message>
    <message>
        <source>Sends the time to a broadcast address every so many seconds</source>
        <translation>Sendet die Zeit in festem Abstand (Sekunden) an eine Broadcast-Adresse</translation>
    </message>
    <message>
        <source>Most memory kept for remembering clients</source>
        <translation>Höchster Speicherbedarf für die Liste der Clients</translation>
    </message>
    <message>
        <source>Precision of the system clock, where the measured one is wrong</source>
        <translation>Genauigkeit der Systemuhr, falls die gemessene falsch ist</translation>
    </message>
    <message>
        <source>Other machines from which chronyc may monitor this daemon</source>
        <translation>Andere Rechner, von denen chronyc diesen Daemon überwachen darf</translation>
    </message>
    <message>
        <source>Machines from which chronyc may not monitor this daemon</source>
        <translation>Rechner, von denen chronyc diesen Daemon nicht überwachen darf</translation>
    </message>
    <message>
        <source>UDP port on which chronyc is answered; 0 for none</source>
        <translation>UDP-Port, auf dem chronyc Antwort erhält; 0 für keinen</translation>
    </message>
    <message>
        <source>Limits how often chronyc is answered over the network</source>
        <translation>Begrenzt, wie oft chronyc über das Netz Antwort erhält</translation>
    </message>
    <message>
        <source>How much worse than the best a source may be and still be combined with it</source>
        <translation>Wie viel schlechter als die beste eine Quelle sein darf, um noch mitzuzählen</translation>
    </message>
    <message>
        <source>No longer supported</source>
        <translation>Wird nicht mehr unterstützt</translation>
    </message>
    <message>
        <source>Reads every *.conf file of these folders as part of the configuration</source>
        <translation>Liest alle Dateien *.conf dieser Ordner als Teil der Konfiguration</translation>
    </message>
    <message>
        <source>How slowly an offset is corrected, against the update interval</source>
        <translation>Wie langsam eine Abweichung korrigiert wird, bezogen auf den Aktualisierungsabstand</translation>
    </message>
    <message>
        <source>Clients that may not ask this machine for the time</source>
        <translation>Clients, die diesen Rechner nicht nach der Zeit fragen dürfen</translation>
    </message>
    <message>
        <source>Remembers the clock&apos;s rate of gain or loss between runs</source>
        <translation>Merkt sich die Drift der Uhr von einem Lauf zum nächsten</translation>
    </message>
    <message>
        <source>Marks the packets sent for the network&apos;s quality of service</source>
        <translation>Kennzeichnet die Pakete für die Dienstgüte des Netzes</translation>
    </message>
    <message>
        <source>Where the measurements of the sources are kept between runs</source>
        <translation>Wo die Messungen der Quellen zwischen zwei Läufen liegen</translation>
    </message>
    <message>
        <source>No longer needed: a dumpdir is enough</source>
        <translation>Nicht mehr nötig: dumpdir genügt</translation>
    </message>
    <message>
        <source>Rates over long stretches, fallen back on when no source answers</source>
        <translation>Drift über lange Zeiträume, auf die ohne Quelle zurückgegriffen wird</translation>
    </message>
    <message>
        <source>Tells whether the real-time clock runs in local time, such as /etc/adjtime</source>
        <translation>Sagt, ob die Echtzeituhr nach Ortszeit läuft, wie /etc/adjtime</translation>
    </message>
    <message>
        <source>Uses time stamps made by the network card</source>
        <translation>Verwendet Zeitstempel der Netzwerkkarte</translation>
    </message>
    <message>
        <source>Reads another file, or several, at this place</source>
        <translation>Liest an dieser Stelle eine oder mehrere andere Dateien</translation>
    </message>
    <message>
        <source>Steps the clock once at start; makestep is the newer way</source>
        <translation>Stellt die Uhr einmal beim Start; makestep ist der neuere Weg</translation>
    </message>
    <message>
        <source>Keys for authenticating servers, peers and clients</source>
        <translation>Schlüssel zur Authentifizierung von Servern, Peers und Clients</translation>
    </message>
    <message>
        <source>How a leap second is put into the clock</source>
        <translation>Wie eine Schaltsekunde in die Uhr kommt</translation>
    </message>
    <message>
        <source>Time zone that tells of leap seconds, usually right/UTC</source>
        <translation>Zeitzone, die Schaltsekunden kennt, meist right/UTC</translation>
    </message>
    <message>
        <source>Serves time even when it is not synchronised</source>
        <translation>Gibt die Zeit auch weiter, wenn der Rechner nicht synchronisiert ist</translation>
    </message>
    <message>
        <source>Keeps the daemon in memory, so that swapping cannot delay it</source>
        <translation>Hält den Daemon im Arbeitsspeicher, damit Auslagern ihn nicht aufhält</translation>
    </message>
    <message>
        <source>What is logged: measurements, statistics, tracking, rtc, refclocks, tempcomp and others</source>
        <translation>Was protokolliert wird: measurements, statistics, tracking, rtc, refclocks, tempcomp und andere</translation>
    </message>
    <message>
        <source>Repeats the column headings of the logs every so many entries; 0 for never</source>
        <translation>Wiederholt die Spaltenköpfe der Protokolle nach so vielen Einträgen; 0 für nie</translation>
    </message>
    <message>
        <source>Reports corrections larger than this to the system log</source>
        <translation>Meldet Korrekturen, die größer sind, dem Systemprotokoll</translation>
    </message>
    <message>
        <source>Folder of the log files</source>
        <translation>Ordner der Protokolldateien</translation>
    </message>
    <message>
        <source>Sends mail when a correction is larger than this</source>
        <translation>Schickt eine E-Mail, wenn eine Korrektur größer ist</translation>
    </message>
    <message>
        <source>Steps the clock when it is off by more than this, in the first updates</source>
        <translation>Stellt die Uhr bei einer größeren Abweichung, in den ersten Aktualisierungen</translation>
    </message>
    <message>
        <source>Lets chronyc set the time by hand</source>
        <translation>Lässt chronyc die Zeit von Hand stellen</translation>
    </message>
    <message>
        <source>Gives up when the clock would have to be corrected by more than this</source>
        <translation>Gibt auf, wenn die Uhr um mehr korrigiert werden müsste</translation>
    </message>
    <message>
        <source>How far the clock&apos;s rate may wander on its own between updates</source>
        <translation>Wie weit die Uhr zwischen zwei Aktualisierungen von selbst abdriften kann</translation>
    </message>
    <message>
        <source>Sources further away than this are not used</source>
        <translation>Weiter entfernte Quellen werden nicht verwendet</translation>
    </message>
    <message>
        <source>Largest rate error that the clock is believed to have</source>
        <translation>Größter Gangfehler, der der Uhr zugetraut wird</translation>
    </message>
    <message>
        <source>Sources that jitter more than this are not used</source>
        <translation>Stärker schwankende Quellen werden nicht verwendet</translation>
    </message>
    <message>
        <source>Most NTS connections served at once by one process</source>
        <translation>Höchstzahl von NTS-Verbindungen, die ein Prozess zugleich bedient</translation>
    </message>
    <message>
        <source>Most measurements kept for each source</source>
        <translation>Höchstzahl der Messungen, die je Quelle behalten werden</translation>
    </message>
    <message>
        <source>Fastest rate at which an offset is corrected</source>
        <translation>Schnellstes Tempo, mit dem eine Abweichung korrigiert wird</translation>
    </message>
    <message>
        <source>How uncertain an estimate of the rate may be and still be used</source>
        <translation>Wie unsicher die Schätzung der Drift sein darf, um noch zu gelten</translation>
    </message>
    <message>
        <source>Fewest measurements kept for each source</source>
        <translation>Mindestzahl der Messungen, die je Quelle behalten werden</translation>
    </message>
    <message>
        <source>Sources that must agree before the clock is corrected</source>
        <translation>Wie viele Quellen übereinstimmen müssen, bevor die Uhr korrigiert wird</translation>
    </message>
    <message>
        <source>First updates during which the dates of certificates are not checked</source>
        <translation>Erste Aktualisierungen, bei denen das Datum von Zertifikaten nicht geprüft wird</translation>
    </message>
    <message>
        <source>Does not remember who asked for the time</source>
        <translation>Merkt sich nicht, wer nach der Zeit gefragt hat</translation>
    </message>
    <message>
        <source>Does not trust the system&apos;s own certificates</source>
        <translation>Vertraut den Zertifikaten des Systems nicht</translation>
    </message>
    <message>
        <source>Socket of Samba, which signs answers to its clients</source>
        <translation>Socket von Samba, das Antworten an seine Clients signiert</translation>
    </message>
    <message>
        <source>Older name of ntsdumpdir</source>
        <translation>Älterer Name von ntsdumpdir</translation>
    </message>
    <message>
        <source>Where NTS keys and cookies are kept between runs</source>
        <translation>Wo NTS-Schlüssel und -Cookies zwischen zwei Läufen liegen</translation>
    </message>
    <message>
        <source>NTP server that NTS clients are sent to</source>
        <translation>NTP-Server, an den NTS-Clients verwiesen werden</translation>
    </message>
    <message>
        <source>TCP port on which NTS keys are handed out</source>
        <translation>TCP-Port, auf dem NTS-Schlüssel ausgegeben werden</translation>
    </message>
    <message>
        <source>Helper processes that hand out NTS keys</source>
        <translation>Hilfsprozesse, die NTS-Schlüssel ausgeben</translation>
    </message>
    <message>
        <source>Limits how often NTS keys are handed out to one address</source>
        <translation>Begrenzt, wie oft eine Adresse NTS-Schlüssel erhält</translation>
    </message>
    <message>
        <source>How often keys are asked for anew from NTS servers</source>
        <translation>Wie oft NTS-Server um neue Schlüssel gebeten werden</translation>
    </message>
    <message>
        <source>How often the key of the server&apos;s own cookies is changed</source>
        <translation>Wie oft der Schlüssel der eigenen Server-Cookies wechselt</translation>
    </message>
    <message>
        <source>Certificate of this NTS server</source>
        <translation>Zertifikat dieses NTS-Servers</translation>
    </message>
    <message>
        <source>Private key of this NTS server</source>
        <translation>Privater Schlüssel dieses NTS-Servers</translation>
    </message>
    <message>
        <source>Certificates trusted when NTS servers are checked</source>
        <translation>Zertifikate, denen beim Prüfen von NTS-Servern vertraut wird</translation>
    </message>
    <message>
        <source>Another machine with which time is exchanged both ways</source>
        <translation>Ein anderer Rechner, mit dem die Zeit in beide Richtungen ausgetauscht wird</translation>
    </message>
    <message>
        <source>Where the running daemon writes its process number</source>
        <translation>Wohin der laufende Daemon seine Prozessnummer schreibt</translation>
    </message>
    <message>
        <source>A name behind which several servers stand, such as pool.ntp.org</source>
        <translation>Ein Name, hinter dem mehrere Server stehen, wie pool.ntp.org</translation>
    </message>
    <message>
        <source>UDP port on which clients are served; 0 for none</source>
        <translation>UDP-Port, auf dem Clients bedient werden; 0 für keinen</translation>
    </message>
    <message>
        <source>UDP port for NTP packets inside PTP messages, for hardware time stamps</source>
        <translation>UDP-Port für NTP-Pakete in PTP-Nachrichten, für Zeitstempel der Netzwerkkarte</translation>
    </message>
    <message>
        <source>Limits how often one address is served</source>
        <translation>Begrenzt, wie oft eine Adresse bedient wird</translation>
    </message>
    <message>
        <source>A receiver or clock attached to this machine: PPS, SHM, SOCK, PHC</source>
        <translation>Ein Empfänger oder eine Uhr an diesem Rechner: PPS, SHM, SOCK, PHC</translation>
    </message>
    <message>
        <source>How much better a source must be before it takes the place of another</source>
        <translation>Wie viel besser eine Quelle sein muss, um eine andere abzulösen</translation>
    </message>
    <message>
        <source>Sets the real-time clock right when it is off by more than this</source>
        <translation>Stellt die Echtzeituhr, wenn sie um mehr abweicht</translation>
    </message>
    <message>
        <source>The real-time clock&apos;s device, usually /dev/rtc</source>
        <translation>Gerätedatei der Echtzeituhr, meist /dev/rtc</translation>
    </message>
    <message>
        <source>Remembers the real-time clock&apos;s rate between runs</source>
        <translation>Merkt sich die Drift der Echtzeituhr von einem Lauf zum nächsten</translation>
    </message>
    <message>
        <source>The real-time clock runs in UTC</source>
        <translation>Die Echtzeituhr läuft nach UTC</translation>
    </message>
    <message>
        <source>Lets the kernel copy the system time to the real-time clock every 11 minutes</source>
        <translation>Lässt den Kernel die Systemzeit alle 11 Minuten in die Echtzeituhr schreiben</translation>
    </message>
    <message>
        <source>Real-time priority of the daemon, 0 to 100</source>
        <translation>Echtzeitpriorität des Daemons, 0 bis 100</translation>
    </message>
    <message>
        <source>One server that is asked for the time</source>
        <translation>Ein Server, der nach der Zeit gefragt wird</translation>
    </message>
    <message>
        <source>Spreads corrections over time for the clients served</source>
        <translation>Verteilt Korrekturen für die bedienten Clients über die Zeit</translation>
    </message>
    <message>
        <source>Reads the sources in every *.sources file of these folders</source>
        <translation>Liest die Quellen aus allen Dateien *.sources dieser Ordner</translation>
    </message>
    <message>
        <source>How much each stratum counts when sources are compared</source>
        <translation>Wie viel jedes Stratum zählt, wenn Quellen verglichen werden</translation>
    </message>
    <message>
        <source>Corrects the rate by the reading of a temperature sensor</source>
        <translation>Korrigiert die Drift nach einem Temperatursensor</translation>
    </message>
    <message>
        <source>User that the daemon runs as once it has started</source>
        <translation>Benutzer, unter dem der Daemon nach dem Start läuft</translation>
    </message>
</context>
<context>
    <name>explanation</name>
    <message>
        <source>From %1, line %2:</source>
        <extracomment>explanation of a source: %1 is a file, %2 the number of a line in it, which follows</extracomment>
        <translation>Aus %1, Zeile %2:</translation>
    </message>
    <message>
        <source>What would change it:</source>
        <extracomment>explanation of a source, before what its user can do about it</extracomment>
        <translation>Was daran etwas ändert:</translation>
    </message>
    <message>
        <source>Lines such as “pool 2.debian.pool.ntp.org iburst” in the configuration bring sources.</source>
        <extracomment>explanation of the clock where chronyd has no source</extracomment>
        <translation>Zeilen wie „pool 2.debian.pool.ntp.org iburst“ in der Konfiguration bringen Quellen.</translation>
    </message>
    <message>
        <source>%1 more sources are left out: choose them in the table.</source>
        <extracomment>explanation of the clock: %1 is a number of sources that are left out</extracomment>
        <translation>%1 weitere Quellen sind weggelassen: Wählen Sie sie in der Tabelle.</translation>
    </message>
    <message>
        <source>No chronyd answers, so nothing is known of its sources. What would help stands at the top of the window, where the program can see it. A daemon that has just been started needs some seconds.</source>
        <extracomment>explanation of the clock where chronyd does not answer</extracomment>
        <translation>Kein chronyd antwortet, deshalb ist über seine Quellen nichts bekannt. Was hilft, steht oben im Fenster, soweit das Programm es erkennen kann. Ein eben gestarteter Dienst braucht einige Sekunden.</translation>
    </message>
</context>
<context>
    <name>explanations</name>
    <message>
        <source></source>
        <comment>Why chrony uses a time source or does not, and what would change that. %1, %2, … stand for addresses, numbers with their units and words of chrony. Directives of chrony&apos;s configuration (maxdistance, iburst) stay as they are.</comment>
        <translation></translation>
    </message>
    <message>
        <source>By its last measurement our clock is off by %1, ± %2.</source>
        <translation>Nach der letzten Messung geht unsere Uhr um %1 falsch, ± %2.</translation>
    </message>
    <message>
        <source>It has never answered: %1 requests were sent, and no packet came back.</source>
        <translation>Sie hat nie geantwortet: %1 Anfragen wurden gesendet, und kein Paket kam zurück.</translation>
    </message>
    <message>
        <source>No measurement of it has succeeded since chronyd was started.</source>
        <translation>Seit dem Start von chronyd ist keine Messung gelungen.</translation>
    </message>
    <message>
        <source>It answers (%1 packets so far), but says itself that it has no time: stratum %2.</source>
        <translation>Sie antwortet (bisher %1 Pakete), sagt aber selbst, dass sie keine Zeit hat: Stratum %2.</translation>
    </message>
    <message>
        <source>It answers, but says itself that it is not synchronised.</source>
        <translation>Sie antwortet, sagt aber selbst, dass sie nicht synchronisiert ist.</translation>
    </message>
    <message>
        <source>chronyd has %1 usable measurements of it, too few to judge it by.</source>
        <translation>chronyd hat %1 brauchbare Messungen von ihr, zu wenige für ein Urteil.</translation>
    </message>
    <message>
        <source>None of the last eight requests was answered; it was heard %1 ago for the last time.</source>
        <translation>Keine der letzten acht Anfragen wurde beantwortet; zuletzt gehört vor %1.</translation>
    </message>
    <message>
        <source>Its time may be off by more than maxdistance (%1) allows: the path to its reference alone has a delay of %2 and a dispersion of %3.</source>
        <translation>Ihre Zeit kann um mehr falsch sein, als maxdistance (%1) erlaubt: Schon der Weg zu ihrer Referenz hat eine Laufzeit von %2 und eine Dispersion von %3.</translation>
    </message>
    <message>
        <source>Its time may be off by more than maxdistance (%1) allows.</source>
        <translation>Ihre Zeit kann um mehr falsch sein, als maxdistance (%1) erlaubt.</translation>
    </message>
    <message>
        <source>Its measurements scatter too much: their standard deviation is %1, and maxjitter allows %2.</source>
        <translation>Ihre Messungen streuen zu sehr: Die Standardabweichung ist %1, maxjitter erlaubt %2.</translation>
    </message>
    <message>
        <source>Its measurements scatter by more than maxjitter (%1) allows.</source>
        <translation>Ihre Messungen streuen um mehr, als maxjitter (%1) erlaubt.</translation>
    </message>
    <message>
        <source>Its time cannot be true if that of the majority is.</source>
        <translation>Ihre Zeit kann nicht stimmen, wenn die der Mehrheit stimmt.</translation>
    </message>
    <message>
        <source>Its interval, %1 to %2, does not touch the one that %3 of %4 others share, %5 to %6.</source>
        <translation>Ihr Intervall, %1 bis %2, berührt nicht das, welches %3 von %4 anderen teilen, %5 bis %6.</translation>
    </message>
    <message>
        <source>%1 sources contradict each other, and no majority tells which are right; this one says %2 to %3.</source>
        <translation>%1 Quellen widersprechen einander, und keine Mehrheit sagt, welche recht haben; diese sagt %2 bis %3.</translation>
    </message>
    <message>
        <source>%1 sources contradict each other, and no majority tells which are right.</source>
        <translation>%1 Quellen widersprechen einander, und keine Mehrheit sagt, welche recht haben.</translation>
    </message>
    <message>
        <source>It could be used, but minsources asks for %1 sources at once, and there are %2.</source>
        <translation>Sie wäre brauchbar, aber minsources verlangt %1 Quellen zugleich, und es gibt %2.</translation>
    </message>
    <message>
        <source>It could be used, but a source with the option require cannot be used yet.</source>
        <translation>Sie wäre brauchbar, aber eine Quelle mit der Option require ist es noch nicht.</translation>
    </message>
    <message>
        <source>Its stratum, %1, is not below the stratum that this machine takes for itself (local stratum … orphan).</source>
        <translation>Ihr Stratum, %1, liegt nicht unter dem, das dieser Rechner für sich selbst annimmt (local stratum … orphan).</translation>
    </message>
    <message>
        <source>chrony gives it the state &quot;%1&quot;, which this program does not know.</source>
        <translation>chrony gibt ihr den Zustand „%1“, den dieses Programm nicht kennt.</translation>
    </message>
    <message>
        <source>chronyd follows it: of all that agree it is the closest to true time.</source>
        <translation>chronyd folgt ihr: Von allen, die übereinstimmen, ist sie der wahren Zeit am nächsten.</translation>
    </message>
    <message>
        <source>chronyd uses it together with the best source.</source>
        <translation>chronyd verwendet sie zusammen mit der besten Quelle.</translation>
    </message>
    <message>
        <source>It is measured only: its line in the configuration has noselect.</source>
        <translation>Sie wird nur gemessen: Ihre Zeile in der Konfiguration hat noselect.</translation>
    </message>
    <message>
        <source>It waits until the other sources have been measured often enough.</source>
        <translation>Sie wartet, bis die anderen Quellen oft genug gemessen sind.</translation>
    </message>
    <message>
        <source>Another source that can be used has the option prefer.</source>
        <translation>Eine andere brauchbare Quelle hat die Option prefer.</translation>
    </message>
    <message>
        <source>Another source became the best one; this one waits for its next measurement.</source>
        <translation>Eine andere Quelle wurde die beste; diese wartet auf ihre nächste Messung.</translation>
    </message>
    <message>
        <source>It is, or was a moment ago, much further from true time than the best source, so that combining the two would not help.</source>
        <translation>Sie ist oder war eben noch viel weiter von der wahren Zeit entfernt als die beste Quelle, sodass beide zusammen nichts brächten.</translation>
    </message>
    <message>
        <source>Its time lies at the edge of those that agree, and it is left out for that.</source>
        <translation>Ihre Zeit liegt am Rand derer, die übereinstimmen, und wird deshalb ausgelassen.</translation>
    </message>
    <message>
        <source>Another source of a lower stratum is preferred.</source>
        <translation>Eine andere Quelle mit niedrigerem Stratum wird vorgezogen.</translation>
    </message>
    <message>
        <source>Its measurements are older than those of the other sources.</source>
        <translation>Ihre Messungen sind älter als die der anderen Quellen.</translation>
    </message>
    <message>
        <source>It does not fully agree with the sources that have the option trust.</source>
        <translation>Sie stimmt nicht ganz mit den Quellen überein, die die Option trust haben.</translation>
    </message>
    <message>
        <source>No address is known for %1.</source>
        <translation>Für %1 ist keine Adresse bekannt.</translation>
    </message>
    <message>
        <source>Take noselect from its line to let chronyd use it.</source>
        <translation>Nehmen Sie noselect aus ihrer Zeile, damit chronyd sie verwenden darf.</translation>
    </message>
    <message>
        <source>Look for a misspelling on its line (server, pool), and whether this machine&apos;s name server answers; chronyd asks again by itself, and at once after &quot;chronyc refresh&quot;.</source>
        <translation>Suchen Sie in ihrer Zeile (server, pool) nach einem Schreibfehler, und sehen Sie nach, ob der Nameserver dieses Rechners antwortet; chronyd fragt von selbst wieder, nach „chronyc refresh“ sofort.</translation>
    </message>
    <message>
        <source>See whether the host is up and whether a firewall lets UDP port 123 through; &quot;tickerctl probe&quot; tries it. If it stays silent, replace its line (server, pool).</source>
        <translation>Sehen Sie nach, ob der Rechner läuft und eine Firewall den UDP-Port 123 durchlässt; „tickerctl probe“ versucht es. Bleibt er stumm, ersetzen Sie seine Zeile (server, pool).</translation>
    </message>
    <message>
        <source>Its keeper has to look after it; until then, another server line brings a source with a time.</source>
        <translation>Darum muss sich ihr Betreiber kümmern; bis dahin bringt eine weitere server-Zeile eine Quelle mit Zeit.</translation>
    </message>
    <message>
        <source>Wait for some more polls; iburst on its line makes the first four at once.</source>
        <translation>Warten Sie einige Abfragen ab; iburst in ihrer Zeile macht die ersten vier sofort.</translation>
    </message>
    <message>
        <source>See whether this machine&apos;s network is up and the host still answers; &quot;chronyc burst 2/4&quot; asks at once. A second server line makes one silence harmless.</source>
        <translation>Sehen Sie nach, ob das Netz dieses Rechners läuft und der Server noch antwortet; „chronyc burst 2/4“ fragt sofort. Mit einer zweiten server-Zeile schadet ein Schweigen nicht.</translation>
    </message>
    <message>
        <source>Choose a nearer server, or allow more by maxdistance.</source>
        <translation>Wählen Sie einen näheren Server, oder erlauben Sie mit maxdistance mehr.</translation>
    </message>
    <message>
        <source>Choose a server over a steadier network, or allow more by maxjitter.</source>
        <translation>Wählen Sie einen Server über ein ruhigeres Netz, oder erlauben Sie mit maxjitter mehr.</translation>
    </message>
    <message>
        <source>Wait for some more polls; iburst on the other sources&apos; lines shortens it.</source>
        <translation>Warten Sie einige Abfragen ab; iburst in den Zeilen der anderen Quellen kürzt das ab.</translation>
    </message>
    <message>
        <source>Do not use it: take its line (server, pool, refclock) out, or give a reference clock its offset by the option offset.</source>
        <translation>Verwenden Sie sie nicht: Nehmen Sie ihre Zeile (server, pool, refclock) heraus, oder geben Sie einer Referenzuhr mit der Option offset ihren Versatz.</translation>
    </message>
    <message>
        <source>Add server lines: four sources let chronyd tell one wrong clock from three right ones. If you know which is right, give its line the option trust.</source>
        <translation>Fügen Sie server-Zeilen hinzu: Mit vier Quellen erkennt chronyd eine falsche Uhr neben drei richtigen. Wissen Sie, welche stimmt, geben Sie ihrer Zeile die Option trust.</translation>
    </message>
    <message>
        <source>Bring the missing sources back, or lower minsources (or take require from the other&apos;s line).</source>
        <translation>Bringen Sie die fehlenden Quellen zurück, oder senken Sie minsources (oder nehmen Sie require aus der anderen Zeile).</translation>
    </message>
    <message>
        <source>Take prefer from the other&apos;s line, or give it to this one too.</source>
        <translation>Nehmen Sie prefer aus der anderen Zeile, oder geben Sie es auch dieser.</translation>
    </message>
    <message>
        <source>Nothing has to be done; combinelimit says how much further a source may be.</source>
        <translation>Es ist nichts zu tun; combinelimit sagt, wie viel weiter eine Quelle entfernt sein darf.</translation>
    </message>
    <message>
        <source>A smaller maxpoll on its line keeps its measurements as fresh as those of the others.</source>
        <translation>Ein kleineres maxpoll in ihrer Zeile hält ihre Messungen so frisch wie die der anderen.</translation>
    </message>
    <message>
        <source>Use a server of a lower stratum, or raise the stratum of the directive local.</source>
        <translation>Verwenden Sie einen Server mit niedrigerem Stratum, oder erhöhen Sie das Stratum der Direktive local.</translation>
    </message>
    <message>
        <source>Give its line the option trust if it deserves it, or look why the trusted sources differ.</source>
        <translation>Geben Sie ihrer Zeile die Option trust, wenn sie es verdient, oder sehen Sie nach, warum die vertrauten Quellen abweichen.</translation>
    </message>
    <message>
        <source>chronyd does not use it, and tells only root why.</source>
        <translation>chronyd verwendet sie nicht und sagt nur root, warum.</translation>
    </message>
    <message>
        <source>chronyd could use it, but leaves it out of those that it combines.</source>
        <translation>chronyd könnte sie verwenden, lässt sie aber aus, wenn es Quellen zusammenfasst.</translation>
    </message>
    <message>
        <source>Ask again with an administrator&apos;s rights, for the report selectdata.</source>
        <translation>Noch einmal mit Verwalterrechten fragen, nach dem Bericht selectdata.</translation>
    </message>
</context>
<context>
    <name>failures</name>
    <message>
        <source></source>
        <comment>What the program says of its work, in alerts and in status lines. %1 to %9 stand for paths, numbers and the words of chrony or of the system; %c stands for another of these sentences, without its full stop; where there is none, &quot;: %c&quot; goes with it. Sentences that begin in lower case follow a colon.</comment>
        <translation></translation>
    </message>
    <message>
        <source>Cannot read %1: %c.</source>
        <translation>%1 kann nicht gelesen werden: %c.</translation>
    </message>
    <message>
        <source>Cannot write %1: %c.</source>
        <translation>%1 kann nicht geschrieben werden: %c.</translation>
    </message>
    <message>
        <source>Cannot rename %1: %c.</source>
        <translation>%1 kann nicht umbenannt werden: %c.</translation>
    </message>
    <message>
        <source>Cannot lock %1: %c.</source>
        <translation>%1 kann nicht gesperrt werden: %c.</translation>
    </message>
    <message>
        <source>Cannot make the folder %1: %c.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden: %c.</translation>
    </message>
    <message>
        <source>Cannot flush the folder of %1: %c.</source>
        <translation>Der Ordner von %1 kann nicht auf die Platte geschrieben werden: %c.</translation>
    </message>
    <message>
        <source>Cannot make a folder in %1: %c.</source>
        <translation>In %1 kann kein Ordner angelegt werden: %c.</translation>
    </message>
    <message>
        <source>Cannot remove %1: %c.</source>
        <translation>%1 kann nicht entfernt werden: %c.</translation>
    </message>
    <message>
        <source>There is no file &quot;%1&quot;.</source>
        <translation>Es gibt keine Datei „%1“.</translation>
    </message>
    <message>
        <source>%1 cannot be read: %c.</source>
        <translation>%1 kann nicht gelesen werden: %c.</translation>
    </message>
    <message>
        <source>There is no folder to keep it in.</source>
        <translation>Es gibt keinen Ordner, in dem es aufbewahrt werden könnte.</translation>
    </message>
    <message>
        <source>it is no text in UTF-8</source>
        <translation>es ist kein Text in UTF-8</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>it is damaged</source>
        <translation>sie ist beschädigt</translation>
    </message>
    <message>
        <source>it cannot be read again</source>
        <translation>die Datei kann nicht noch einmal gelesen werden</translation>
    </message>
    <message>
        <source>its end is missing</source>
        <translation>das Ende fehlt</translation>
    </message>
    <message>
        <source>it is not an ordinary file</source>
        <translation>es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>it is larger than %1 bytes</source>
        <translation>die Datei ist größer als %1 Bytes</translation>
    </message>
    <message>
        <source>%1 cannot be started: %c.</source>
        <translation>%1 kann nicht gestartet werden: %c.</translation>
    </message>
    <message>
        <source>%1 did not end within %2 s and was ended.</source>
        <translation>%1 endete nicht innerhalb von %2 s und wurde beendet.</translation>
    </message>
    <message>
        <source>%1 printed more than %2 KiB and was ended; the rest is missing.</source>
        <translation>%1 gab mehr als %2 KiB aus und wurde beendet; der Rest fehlt.</translation>
    </message>
    <message>
        <source>%1 was ended by signal %2 (%3).</source>
        <translation>%1 wurde durch Signal %2 (%3) beendet.</translation>
    </message>
    <message>
        <source>%1 was ended because the program closes.</source>
        <translation>%1 wurde beendet, weil das Programm schließt.</translation>
    </message>
    <message>
        <source>only the first %1 lines are shown.</source>
        <translation>Nur die ersten %1 Zeilen werden gezeigt.</translation>
    </message>
    <message>
        <source>The settings file %1 is damaged (%c).</source>
        <translation>Die Einstellungsdatei %1 ist beschädigt (%c).</translation>
    </message>
    <message>
        <source>%c. It is kept as %1.</source>
        <translation>%c. Sie ist als %1 aufbewahrt.</translation>
    </message>
    <message>
        <source>The settings file %1 is damaged.</source>
        <translation>Die Einstellungsdatei %1 ist beschädigt.</translation>
    </message>
    <message>
        <source>The settings file %1 cannot be read (%c).</source>
        <translation>Die Einstellungsdatei %1 kann nicht gelesen werden (%c).</translation>
    </message>
    <message>
        <source>%c. The defaults are used.</source>
        <translation>%c. Es gelten die Voreinstellungen.</translation>
    </message>
    <message>
        <source>it has lines that are no settings</source>
        <translation>sie hat Zeilen, die keine Einstellungen sind</translation>
    </message>
    <message>
        <source>there is no room for a temporary file</source>
        <translation>es ist kein Platz für eine temporäre Datei</translation>
    </message>
    <message>
        <source>a value does not read back</source>
        <translation>ein Wert lässt sich nicht zurücklesen</translation>
    </message>
    <message>
        <source>The settings could not be saved in time.</source>
        <translation>Die Einstellungen konnten nicht rechtzeitig gespeichert werden.</translation>
    </message>
    <message>
        <source>%1 cannot be opened.</source>
        <translation>%1 kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>It is no text in UTF-8.</source>
        <translation>Es ist kein Text in UTF-8.</translation>
    </message>
    <message>
        <source>Line %1 holds a zero byte, which no configuration may.</source>
        <translation>Zeile %1 enthält ein Nullbyte, das in keiner Konfiguration stehen darf.</translation>
    </message>
    <message>
        <source>The text holds a character that cannot be written (error %1).</source>
        <translation>Der Text enthält ein Zeichen, das nicht geschrieben werden kann (Fehler %1).</translation>
    </message>
    <message>
        <source>chronyd did not end in time, so the syntax is not known to be right.</source>
        <translation>chronyd wurde nicht rechtzeitig fertig; ob die Syntax stimmt, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>chronyd could not be run.</source>
        <translation>chronyd konnte nicht ausgeführt werden.</translation>
    </message>
    <message>
        <source>chronyd was not found on this machine, so the syntax was not checked.</source>
        <translation>chronyd wurde auf diesem Rechner nicht gefunden; die Syntax wurde nicht geprüft.</translation>
    </message>
    <message>
        <source>%1 is no longer supported and has no effect.</source>
        <translation>%1 wird nicht mehr unterstützt und hat keine Wirkung.</translation>
    </message>
    <message>
        <source>%1 has no effect in a file of a sourcedir, which holds server, pool and peer only.</source>
        <translation>%1 hat in einer Datei eines sourcedir keine Wirkung; dort stehen nur server, pool und peer.</translation>
    </message>
    <message>
        <source>%1: there is no user %2, so chronyd would not start.</source>
        <translation>%1: Es gibt keinen Benutzer %2; chronyd würde nicht starten.</translation>
    </message>
    <message>
        <source>%1: there is no driver %2 (PPS, SHM, SOCK and PHC there are), so chronyd would not start.</source>
        <translation>%1: Es gibt keinen Treiber %2 (es gibt PPS, SHM, SOCK und PHC); chronyd würde nicht starten.</translation>
    </message>
    <message>
        <source>%1: minpoll %2 asks %3 too often; outside the local network 6, a request every 64 seconds, is the least.</source>
        <translation>%1: minpoll %2 fragt %3 zu oft; außerhalb des lokalen Netzes ist 6 das Mindeste, eine Anfrage alle 64 Sekunden.</translation>
    </message>
    <message>
        <source>%1: %2 does not exist.</source>
        <translation>%1: %2 gibt es nicht.</translation>
    </message>
    <message>
        <source>%1: %2 is no file.</source>
        <translation>%1: %2 ist keine Datei.</translation>
    </message>
    <message>
        <source>%1: %2 is no device.</source>
        <translation>%1: %2 ist keine Gerätedatei.</translation>
    </message>
    <message>
        <source>%1: %2 is no folder.</source>
        <translation>%1: %2 ist kein Ordner.</translation>
    </message>
    <message>
        <source>%1: the user %2, as whom chronyd runs, cannot read %3.</source>
        <translation>%1: Der Benutzer %2, unter dem chronyd läuft, kann %3 nicht lesen.</translation>
    </message>
    <message>
        <source>%1: the user %2, as whom chronyd runs, cannot write in the folder %3.</source>
        <translation>%1: Der Benutzer %2, unter dem chronyd läuft, kann im Ordner %3 nicht schreiben.</translation>
    </message>
    <message>
        <source>The picture %1 could not be written: %c.</source>
        <translation>Das Bild %1 konnte nicht geschrieben werden: %c.</translation>
    </message>
    <message>
        <source>A picture must be from 1 to %1 pixels wide and high.</source>
        <translation>Ein Bild muss 1 bis %1 Pixel breit und hoch sein.</translation>
    </message>
    <message>
        <source>The picture %1 could not be drawn.</source>
        <translation>Das Bild %1 konnte nicht gezeichnet werden.</translation>
    </message>
    <message>
        <source>There is no point in %1: a line has temperature,frequency.</source>
        <translation>In %1 ist kein Punkt: eine Zeile hat temperature,frequency.</translation>
    </message>
    <message>
        <source>%1 is no scatter map.</source>
        <translation>%1 ist keine Punktwolke.</translation>
    </message>
    <message>
        <source>There is no JSON at byte %1.</source>
        <translation>Bei Byte %1 steht kein JSON.</translation>
    </message>
    <message>
        <source>It is no object of sensors.</source>
        <translation>Sie ist kein Objekt aus Sensoren.</translation>
    </message>
    <message>
        <source>The entry &quot;%1&quot; is not as it should be.</source>
        <translation>Der Eintrag „%1“ ist nicht, wie er sein soll.</translation>
    </message>
    <message>
        <source>It cannot be taken in: %c.</source>
        <translation>Sie kann nicht aufgenommen werden: %c.</translation>
    </message>
    <message>
        <source>it is not in the Rich Text Format</source>
        <translation>sie liegt nicht im Rich-Text-Format vor</translation>
    </message>
    <message>
        <source>it ends in the middle</source>
        <translation>sie endet mittendrin</translation>
    </message>
    <message>
        <source>Nothing was done.</source>
        <translation>Es wurde nichts getan.</translation>
    </message>
    <message>
        <source>Another administrative job is under way.</source>
        <translation>Eine andere Verwaltungsaufgabe läuft noch.</translation>
    </message>
    <message>
        <source>There is no such job.</source>
        <translation>Eine solche Aufgabe gibt es nicht.</translation>
    </message>
    <message>
        <source>The files to be installed cannot be written to %1.</source>
        <translation>Die zu installierenden Dateien können nicht nach %1 geschrieben werden.</translation>
    </message>
    <message>
        <source>The preferences point to the distribution&apos;s chrony, which is installed already.</source>
        <translation>Die Einstellungen verweisen auf das chrony der Distribution, das schon installiert ist.</translation>
    </message>
    <message>
        <source>The preferences point to the distribution&apos;s chrony, which its package manager removes.</source>
        <translation>Die Einstellungen verweisen auf das chrony der Distribution, das deren Paketverwaltung entfernt.</translation>
    </message>
    <message>
        <source>The logs of the distribution&apos;s chrony are rotated by the distribution.</source>
        <translation>Die Protokolle des chrony der Distribution rotiert die Distribution selbst.</translation>
    </message>
    <message>
        <source>%1 was not installed.</source>
        <translation>%1 wurde nicht installiert.</translation>
    </message>
    <message>
        <source>There is no chronywake in the folders of programs.</source>
        <translation>In den Programmordnern gibt es kein chronywake.</translation>
    </message>
    <message>
        <source>The configuration names no folder of logs.</source>
        <translation>Die Konfiguration nennt keinen Ordner für Protokolle.</translation>
    </message>
    <message>
        <source>There is no service of a GPS daemon on this machine.</source>
        <translation>Auf diesem Rechner gibt es keinen Dienst eines GPS-Daemons.</translation>
    </message>
    <message>
        <source>There is no configuration to be installed: %1 cannot be read.</source>
        <translation>Es gibt keine Konfiguration zu installieren: %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>A server has a name or an address, without quotes or signs.</source>
        <translation>Ein Server hat einen Namen oder eine Adresse, ohne Anführungs- oder Sonderzeichen.</translation>
    </message>
    <message>
        <source>Nothing was changed: %1 reads %2, while the preferences name %3 as the configuration.</source>
        <translation>Nichts wurde geändert: %1 liest %2, während die Einstellungen %3 als Konfiguration nennen.</translation>
    </message>
    <message>
        <source>chronyd refuses this configuration: %c.</source>
        <translation>chronyd lehnt diese Konfiguration ab: %c.</translation>
    </message>
    <message>
        <source>This configuration could not be checked and is not installed: %c.</source>
        <translation>Diese Konfiguration konnte nicht geprüft werden und ist nicht installiert: %c.</translation>
    </message>
    <message>
        <source>The configuration was not installed: %c.</source>
        <translation>Die Konfiguration wurde nicht installiert: %c.</translation>
    </message>
    <message>
        <source>The configuration is installed, but chronyd was not started: %c.</source>
        <translation>Die Konfiguration ist installiert, aber chronyd wurde nicht gestartet: %c.</translation>
    </message>
    <message>
        <source>chronyd ended soon after it was started with this configuration.</source>
        <translation>chronyd endete bald nach dem Start mit dieser Konfiguration.</translation>
    </message>
    <message>
        <source>chronyd ended soon after it was started with this configuration: %1.</source>
        <translation>chronyd endete bald nach dem Start mit dieser Konfiguration: %1.</translation>
    </message>
    <message>
        <source>There was no configuration before it that could be put back: chronyd does not run.</source>
        <translation>Vorher gab es keine Konfiguration, die zurückgestellt werden könnte: chronyd läuft nicht.</translation>
    </message>
    <message>
        <source>The former configuration did not come back: %c.</source>
        <translation>Die frühere Konfiguration kam nicht zurück: %c.</translation>
    </message>
    <message>
        <source>The former configuration is back, but chronyd does not run with it either: %c.</source>
        <translation>Die frühere Konfiguration ist wieder da, aber auch mit ihr läuft chronyd nicht: %c.</translation>
    </message>
    <message>
        <source>The former configuration is back, and chronyd runs with it again.</source>
        <translation>Die frühere Konfiguration ist wieder da, und chronyd läuft wieder mit ihr.</translation>
    </message>
    <message>
        <source>chrony was not installed: %c.</source>
        <translation>chrony wurde nicht installiert: %c.</translation>
    </message>
    <message>
        <source>chrony was not removed as a whole: %c.</source>
        <translation>chrony wurde nicht vollständig entfernt: %c.</translation>
    </message>
    <message>
        <source>The older installation was not removed as a whole: %c.</source>
        <translation>Die ältere Installation wurde nicht vollständig entfernt: %c.</translation>
    </message>
    <message>
        <source>chronyd was not started: %c.</source>
        <translation>chronyd wurde nicht gestartet: %c.</translation>
    </message>
    <message>
        <source>chronyd was not stopped: %c.</source>
        <translation>chronyd wurde nicht angehalten: %c.</translation>
    </message>
    <message>
        <source>chronyd still treats the clock as before: %c.</source>
        <translation>chronyd behandelt die Uhr weiter wie bisher: %c.</translation>
    </message>
    <message>
        <source>chronywake was not installed: %c.</source>
        <translation>chronywake wurde nicht installiert: %c.</translation>
    </message>
    <message>
        <source>chronywake was not removed: %c.</source>
        <translation>chronywake wurde nicht entfernt: %c.</translation>
    </message>
    <message>
        <source>chronywake did not correct the clock: %c.</source>
        <translation>chronywake hat die Uhr nicht korrigiert: %c.</translation>
    </message>
    <message>
        <source>The logs were not rotated: %c.</source>
        <translation>Die Protokolle wurden nicht rotiert: %c.</translation>
    </message>
    <message>
        <source>The tracking log was not made readable: %c.</source>
        <translation>Das Tracking-Protokoll wurde nicht lesbar gemacht: %c.</translation>
    </message>
    <message>
        <source>The GPS daemon was not restarted: %c.</source>
        <translation>Der GPS-Daemon wurde nicht neu gestartet: %c.</translation>
    </message>
    <message>
        <source>The clock was not stepped: %c.</source>
        <translation>Die Uhr wurde nicht gestellt: %c.</translation>
    </message>
    <message>
        <source>The clock was not synchronised.</source>
        <translation>Die Uhr wurde nicht synchronisiert.</translation>
    </message>
    <message>
        <source>The processes could not be listed: %c.</source>
        <translation>Die Prozesse konnten nicht aufgelistet werden: %c.</translation>
    </message>
    <message>
        <source>The root helper cannot be reached: %c.</source>
        <translation>Der Root-Helfer ist nicht erreichbar: %c.</translation>
    </message>
    <message>
        <source>the system bus does not answer</source>
        <translation>der Systembus antwortet nicht</translation>
    </message>
    <message>
        <source>The root helper was not installed: %c.</source>
        <translation>Der Root-Helfer wurde nicht installiert: %c.</translation>
    </message>
    <message>
        <source>The root helper is of another version: start this program again, or install its package again.</source>
        <translation>Der Root-Helfer hat eine andere Version: Starten Sie dieses Programm neu, oder installieren Sie sein Paket noch einmal.</translation>
    </message>
    <message>
        <source>The root helper is missing: install the package of this program again.</source>
        <translation>Der Root-Helfer fehlt: Installieren Sie das Paket dieses Programms noch einmal.</translation>
    </message>
    <message>
        <source>The root helper gave no authorisation.</source>
        <translation>Der Root-Helfer hat keine Berechtigung erteilt.</translation>
    </message>
    <message>
        <source>There is no root helper here.</source>
        <translation>Hier gibt es keinen Root-Helfer.</translation>
    </message>
    <message>
        <source>This needs an administrator&apos;s authorisation.</source>
        <translation>Dazu muss ein Administrator berechtigen.</translation>
    </message>
    <message>
        <source>The authorisation does not hold for this connection, or holds no longer.</source>
        <translation>Die Berechtigung gilt nicht für diese Verbindung, oder sie gilt nicht mehr.</translation>
    </message>
    <message>
        <source>The authorisation was not given.</source>
        <translation>Die Berechtigung wurde nicht erteilt.</translation>
    </message>
    <message>
        <source>The helper cannot find out who asks.</source>
        <translation>Der Root-Helfer kann nicht herausfinden, wer fragt.</translation>
    </message>
    <message>
        <source>This user was refused too often: it may be asked for again in a minute.</source>
        <translation>Dieser Benutzer wurde zu oft abgewiesen: In einer Minute kann er wieder fragen.</translation>
    </message>
    <message>
        <source>This user is being asked for a password already.</source>
        <translation>Dieser Benutzer wird schon nach einem Passwort gefragt.</translation>
    </message>
    <message>
        <source>The authorisation service (polkit) does not answer.</source>
        <translation>Der Berechtigungsdienst (polkit) antwortet nicht.</translation>
    </message>
    <message>
        <source>The message holds no request.</source>
        <translation>Die Nachricht enthält keine Anfrage.</translation>
    </message>
    <message>
        <source>This command is not one that the helper runs.</source>
        <translation>Diesen Befehl führt der Root-Helfer nicht aus.</translation>
    </message>
    <message>
        <source>A shell&apos;s line must be one command in single quotes, with its errors joined.</source>
        <translation>Die Zeile einer Shell muss ein einziger Befehl in einfachen Anführungszeichen sein, mit der Fehlerausgabe dabei.</translation>
    </message>
    <message>
        <source>The words of the command are not divided as they should be.</source>
        <translation>Die Wörter des Befehls sind nicht so getrennt, wie sie es sein sollen.</translation>
    </message>
    <message>
        <source>The request is too long.</source>
        <translation>Die Anfrage ist zu lang.</translation>
    </message>
    <message>
        <source>The request holds characters that cannot be printed.</source>
        <translation>Die Anfrage enthält Zeichen, die sich nicht drucken lassen.</translation>
    </message>
    <message>
        <source>A request is EXECUTE with a command, or QUIT.</source>
        <translation>Eine Anfrage ist EXECUTE mit einem Befehl, oder QUIT.</translation>
    </message>
    <message>
        <source>The file to be installed must be named by a plain absolute path.</source>
        <translation>Die zu installierende Datei muss mit einem einfachen absoluten Pfad genannt werden.</translation>
    </message>
    <message>
        <source>Nothing may be installed there.</source>
        <translation>Dort darf nichts installiert werden.</translation>
    </message>
    <message>
        <source>Installing takes four arguments in quotes.</source>
        <translation>Zum Installieren gehören vier Argumente in Anführungszeichen.</translation>
    </message>
    <message>
        <source>What is installed there has another owner or mode.</source>
        <translation>Was dort installiert wird, hat einen anderen Besitzer oder andere Rechte.</translation>
    </message>
    <message>
        <source>Removing takes one path in quotes.</source>
        <translation>Zum Entfernen gehört ein Pfad in Anführungszeichen.</translation>
    </message>
    <message>
        <source>Nothing may be removed there.</source>
        <translation>Dort darf nichts entfernt werden.</translation>
    </message>
    <message>
        <source>The helper adds only the users _chrony, chrony and ntp.</source>
        <translation>Der Root-Helfer legt nur die Benutzer _chrony, chrony und ntp an.</translation>
    </message>
    <message>
        <source>Only a configuration has a former one.</source>
        <translation>Nur zu einer Konfiguration gibt es eine frühere.</translation>
    </message>
    <message>
        <source>The clock is stepped by a number of seconds other than 0.</source>
        <translation>Die Uhr wird um eine Zahl von Sekunden gestellt, die nicht 0 ist.</translation>
    </message>
    <message>
        <source>Adjusting the clock is switched on or off.</source>
        <translation>Das Nachstellen der Uhr wird mit on oder off geschaltet.</translation>
    </message>
    <message>
        <source>This verb takes no arguments.</source>
        <translation>Dieses Verb hat keine Argumente.</translation>
    </message>
    <message>
        <source>This is not the support tool that the helper was installed with.</source>
        <translation>Das ist nicht das Hilfsprogramm, mit dem der Root-Helfer installiert wurde.</translation>
    </message>
    <message>
        <source>The support tool needs a verb.</source>
        <translation>Das Hilfsprogramm braucht ein Verb.</translation>
    </message>
    <message>
        <source>The support tool has no such verb.</source>
        <translation>Das Hilfsprogramm hat kein solches Verb.</translation>
    </message>
    <message>
        <source>No folder may be made there.</source>
        <translation>Dort darf kein Ordner angelegt werden.</translation>
    </message>
    <message>
        <source>Logs are rotated by the installed script in chrony&apos;s log folder.</source>
        <translation>Protokolle rotiert das installierte Skript, und zwar im Protokollordner von chrony.</translation>
    </message>
    <message>
        <source>Only chrony&apos;s tracking log can be made readable.</source>
        <translation>Nur das Tracking-Protokoll von chrony kann lesbar gemacht werden.</translation>
    </message>
    <message>
        <source>This is no service that the helper manages.</source>
        <translation>Diesen Dienst verwaltet der Root-Helfer nicht.</translation>
    </message>
    <message>
        <source>This is no report of chronyc that the helper runs.</source>
        <translation>Diesen Bericht von chronyc ruft der Root-Helfer nicht ab.</translation>
    </message>
    <message>
        <source>A synchronisation takes one server, and 1 to 120 seconds.</source>
        <translation>Zu einer Synchronisation gehören ein Server und 1 bis 120 Sekunden.</translation>
    </message>
    <message>
        <source>The helper runs a chronyc or chronyd of its own list only.</source>
        <translation>Der Root-Helfer führt nur chronyc und chronyd aus seiner eigenen Liste aus.</translation>
    </message>
    <message>
        <source>Line %1 of the helper&apos;s rules needs a number of seconds up to 86400.</source>
        <translation>In Zeile %1 der Regeln des Root-Helfers fehlt eine Zahl von Sekunden bis 86400.</translation>
    </message>
    <message>
        <source>Line %1 of the helper&apos;s rules begins with a word that is none of theirs.</source>
        <translation>Zeile %1 der Regeln des Root-Helfers beginnt mit einem unbekannten Wort.</translation>
    </message>
    <message>
        <source>Line %1 of the helper&apos;s rules needs an absolute path without &quot;..&quot;.</source>
        <translation>In Zeile %1 der Regeln des Root-Helfers fehlt ein absoluter Pfad ohne „..“.</translation>
    </message>
    <message>
        <source>The file is not the service definition that belongs at %1.</source>
        <translation>Die Datei ist nicht die Dienstdefinition, die nach %1 gehört.</translation>
    </message>
    <message>
        <source>The configuration is not a text.</source>
        <translation>Die Konfiguration ist kein Text.</translation>
    </message>
    <message>
        <source>Line %1 of the configuration is longer than chronyd reads.</source>
        <translation>Zeile %1 der Konfiguration ist länger, als chronyd liest.</translation>
    </message>
    <message>
        <source>Line %1 of the configuration needs an authorisation of its own, but holds characters that a question cannot show safely.</source>
        <translation>Zeile %1 der Konfiguration braucht eine eigene Berechtigung, enthält aber Zeichen, die eine Frage nicht sicher zeigen kann.</translation>
    </message>
    <message>
        <source>This configuration has more or longer unusual lines than a question can show.</source>
        <translation>Diese Konfiguration hat mehr oder längere ungewöhnliche Zeilen, als eine Frage zeigen kann.</translation>
    </message>
    <message>
        <source>chronyd does not accept this configuration: %c.</source>
        <translation>chronyd nimmt diese Konfiguration nicht an: %c.</translation>
    </message>
    <message>
        <source>chronyd does not accept a file that this configuration includes: %c.</source>
        <translation>chronyd nimmt eine Datei nicht an, die diese Konfiguration einbindet: %c.</translation>
    </message>
    <message>
        <source>a file that it includes is missing or cannot be read</source>
        <translation>eine Datei, die sie einbindet, fehlt oder kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>%1 can be changed by others than root, so it is not heeded.</source>
        <translation>%1 kann nicht nur von root geändert werden und wird darum nicht beachtet.</translation>
    </message>
    <message>
        <source>Too many requests are waiting.</source>
        <translation>Es warten zu viele Anfragen.</translation>
    </message>
    <message>
        <source>The helper cannot start a process.</source>
        <translation>Der Root-Helfer kann keinen Prozess starten.</translation>
    </message>
    <message>
        <source>The command was ended by signal %1.</source>
        <translation>Der Befehl wurde durch Signal %1 beendet.</translation>
    </message>
    <message>
        <source>The command did not end within %1 s.</source>
        <translation>Der Befehl war nach %1 s nicht zu Ende.</translation>
    </message>
    <message>
        <source>The command printed too much.</source>
        <translation>Der Befehl hat zu viel ausgegeben.</translation>
    </message>
    <message>
        <source>The command ended with status %1.</source>
        <translation>Der Befehl endete mit dem Status %1.</translation>
    </message>
    <message>
        <source>What is to be installed is not an ordinary file.</source>
        <translation>Was installiert werden soll, ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>The file to be installed belongs to somebody else.</source>
        <translation>Die zu installierende Datei gehört jemand anderem.</translation>
    </message>
    <message>
        <source>The file to be installed has more than one name.</source>
        <translation>Die zu installierende Datei hat mehr als einen Namen.</translation>
    </message>
    <message>
        <source>The file to be installed is too large.</source>
        <translation>Die zu installierende Datei ist zu groß.</translation>
    </message>
    <message>
        <source>The file to be installed cannot be opened by its user.</source>
        <translation>Die zu installierende Datei kann von ihrem Benutzer nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The file to be installed could not be read in time.</source>
        <translation>Die zu installierende Datei konnte nicht rechtzeitig gelesen werden.</translation>
    </message>
    <message>
        <source>%1 is missing.</source>
        <translation>%1 fehlt.</translation>
    </message>
    <message>
        <source>The program is another one than the helper was installed with: install the helper again.</source>
        <translation>Das Programm ist ein anderes als das, mit dem der Root-Helfer installiert wurde: Installieren Sie den Root-Helfer noch einmal.</translation>
    </message>
    <message>
        <source>Line %1 of the configuration includes the configuration itself, and chronyd would not start with it.</source>
        <translation>Zeile %1 der Konfiguration bindet die Konfiguration selbst ein; chronyd würde damit nicht starten.</translation>
    </message>
    <message>
        <source>Line %1 (%2) needs an authorisation of its own.</source>
        <translation>Zeile %1 (%2) braucht eine eigene Berechtigung.</translation>
    </message>
    <message>
        <source>The helper cannot keep the file to be installed.</source>
        <translation>Der Root-Helfer kann die zu installierende Datei nicht ablegen.</translation>
    </message>
    <message>
        <source>%1 is missing, or others than root can change it.</source>
        <translation>%1 fehlt oder kann nicht nur von root geändert werden.</translation>
    </message>
    <message>
        <source>The former configuration has changed meanwhile.</source>
        <translation>Die frühere Konfiguration hat sich inzwischen geändert.</translation>
    </message>
    <message>
        <source>The root helper belongs to the package tickervantage, which has put it in place: a second one would hide it, and its updates.</source>
        <translation>Der Root-Helfer gehört zum Paket tickervantage, das ihn eingerichtet hat: Ein zweiter würde ihn und seine Aktualisierungen verdecken.</translation>
    </message>
    <message>
        <source>There is no such verb with so many arguments.</source>
        <translation>Ein Verb mit so vielen Argumenten gibt es nicht.</translation>
    </message>
    <message>
        <source>The first argument of createdirectory stays empty when there are two.</source>
        <translation>Das erste von zwei Argumenten von createdirectory bleibt leer.</translation>
    </message>
    <message>
        <source>adjustclock takes on or off.</source>
        <translation>adjustclock braucht on oder off.</translation>
    </message>
    <message>
        <source>%1 is not a path that can be used here.</source>
        <translation>%1 ist kein Pfad, der hier verwendet werden kann.</translation>
    </message>
    <message>
        <source>Cannot reach %1: %c.</source>
        <translation>%1 ist nicht erreichbar: %c.</translation>
    </message>
    <message>
        <source>The way to %1 leads through a folder that others can change.</source>
        <translation>Der Weg zu %1 führt durch einen Ordner, den andere ändern können.</translation>
    </message>
    <message>
        <source>The way to %1 leads through a symbolic link that others made.</source>
        <translation>Der Weg zu %1 führt über einen symbolischen Link, den andere angelegt haben.</translation>
    </message>
    <message>
        <source>No folder for %1 is made where others can write.</source>
        <translation>Für %1 wird kein Ordner angelegt, wo andere schreiben können.</translation>
    </message>
    <message>
        <source>%1 stays as it is: others can write to its folder.</source>
        <translation>%1 bleibt, wie es ist: Andere können in seinem Ordner schreiben.</translation>
    </message>
    <message>
        <source>Cannot lock the folder of %1: %c.</source>
        <translation>Der Ordner von %1 kann nicht gesperrt werden: %c.</translation>
    </message>
    <message>
        <source>There is no owner %1 here.</source>
        <translation>Hier gibt es keinen Besitzer %1.</translation>
    </message>
    <message>
        <source>%1 is no mode for a file that root installs.</source>
        <translation>%1 sind keine Rechte für eine Datei, die root installiert.</translation>
    </message>
    <message>
        <source>Cannot install %1: %c.</source>
        <translation>%1 kann nicht installiert werden: %c.</translation>
    </message>
    <message>
        <source>Something that is no ordinary file lies at %1.</source>
        <translation>Bei %1 liegt etwas, das keine gewöhnliche Datei ist.</translation>
    </message>
    <message>
        <source>Cannot keep the former %1: %c.</source>
        <translation>Das frühere %1 kann nicht aufgehoben werden: %c.</translation>
    </message>
    <message>
        <source>Cannot replace %1: %c.</source>
        <translation>%1 kann nicht ersetzt werden: %c.</translation>
    </message>
    <message>
        <source>Cannot bring back the former %1: %c.</source>
        <translation>Das frühere %1 kann nicht zurückgeholt werden: %c.</translation>
    </message>
    <message>
        <source>There is no user %1, to whom %2 would belong.</source>
        <translation>Es gibt keinen Benutzer %1, dem %2 gehören würde.</translation>
    </message>
    <message>
        <source>%1 is no name for a system user.</source>
        <translation>%1 ist kein Name für einen Systembenutzer.</translation>
    </message>
    <message>
        <source>Cannot add the user %1:</source>
        <translation>Der Benutzer %1 kann nicht angelegt werden:</translation>
    </message>
    <message>
        <source>%1 is no number of seconds to step the clock by.</source>
        <translation>%1 ist keine Zahl von Sekunden, um die die Uhr gestellt werden kann.</translation>
    </message>
    <message>
        <source>Cannot step the clock: %c.</source>
        <translation>Die Uhr kann nicht gestellt werden: %c.</translation>
    </message>
    <message>
        <source>Cannot find the script %1: %c.</source>
        <translation>Das Skript %1 ist nicht zu finden: %c.</translation>
    </message>
    <message>
        <source>%1 is not run: others can change it.</source>
        <translation>%1 wird nicht ausgeführt: Andere können es ändern.</translation>
    </message>
    <message>
        <source>Cannot find the log folder %1: %c.</source>
        <translation>Der Protokollordner %1 ist nicht zu finden: %c.</translation>
    </message>
    <message>
        <source>Others can write to the log folder %1.</source>
        <translation>Andere können im Protokollordner %1 schreiben.</translation>
    </message>
    <message>
        <source>Cannot rotate the logs in %1:</source>
        <translation>Die Protokolle in %1 können nicht rotiert werden:</translation>
    </message>
    <message>
        <source>Cannot ask for %1:</source>
        <translation>Nach %1 kann nicht gefragt werden:</translation>
    </message>
    <message>
        <source>Cannot start %1:</source>
        <translation>%1 kann nicht gestartet werden:</translation>
    </message>
    <message>
        <source>Cannot stop %1:</source>
        <translation>%1 kann nicht angehalten werden:</translation>
    </message>
    <message>
        <source>Cannot restart %1:</source>
        <translation>%1 kann nicht neu gestartet werden:</translation>
    </message>
    <message>
        <source>Cannot enable %1:</source>
        <translation>%1 kann nicht aktiviert werden:</translation>
    </message>
    <message>
        <source>Cannot disable %1:</source>
        <translation>%1 kann nicht deaktiviert werden:</translation>
    </message>
    <message>
        <source>systemd cannot read its units again:</source>
        <translation>systemd kann seine Units nicht neu einlesen:</translation>
    </message>
    <message>
        <source>%1 does not stay up:</source>
        <translation>%1 bleibt nicht am Laufen:</translation>
    </message>
    <message>
        <source>it said nothing.</source>
        <translation>es hat nichts gesagt.</translation>
    </message>
    <message>
        <source>status %1.</source>
        <translation>Status %1.</translation>
    </message>
    <message>
        <source>No service for chronyd is installed.</source>
        <translation>Es ist kein Dienst für chronyd installiert.</translation>
    </message>
    <message>
        <source>The service of chronywake is not installed.</source>
        <translation>Der Dienst von chronywake ist nicht installiert.</translation>
    </message>
    <message>
        <source>The distribution&apos;s chrony is not installed.</source>
        <translation>Das chrony der Distribution ist nicht installiert.</translation>
    </message>
    <message>
        <source>%1 does not start chronyd by a single command line.</source>
        <translation>%1 startet chronyd nicht mit einer einzigen Befehlszeile.</translation>
    </message>
    <message>
        <source>The file in the autostart folder does not start the program.</source>
        <translation>Die Datei im Autostart-Ordner startet das Programm nicht.</translation>
    </message>
    <message>
        <source>%1 gave no answer: %c.</source>
        <translation>%1 gab keine Antwort: %c.</translation>
    </message>
    <message>
        <source>A line of the report &quot;%1&quot; has %2 columns instead of %3: %4</source>
        <translation>Eine Zeile des Berichts „%1“ hat %2 Spalten statt %3: %4</translation>
    </message>
    <message>
        <source>This is no capture: it does not begin with &quot;# tickervantage capture 1&quot;.</source>
        <translation>Dies ist keine Aufzeichnung: Sie beginnt nicht mit „# tickervantage capture 1“.</translation>
    </message>
    <message>
        <source>Line %1 of the capture belongs to no report.</source>
        <translation>Zeile %1 der Aufzeichnung gehört zu keinem Bericht.</translation>
    </message>
    <message>
        <source>Another program of this user keeps the history already.</source>
        <translation>Ein anderes Programm dieses Benutzers führt die Aufzeichnung bereits.</translation>
    </message>
    <message>
        <source>%1 is of a later version of this program: it is read, and nothing is added to it.</source>
        <translation>%1 ist von einer späteren Version dieses Programms: Die Datei wird gelesen, und nichts wird hinzugefügt.</translation>
    </message>
    <message>
        <source>Line %2 of %1 is blank, and chronyd ends where a file of points has a blank line.</source>
        <translation>Zeile %2 von %1 ist leer, und chronyd beendet sich, wenn eine Punktedatei eine leere Zeile hat.</translation>
    </message>
    <message>
        <source>Line %2 of %1 is a remark, and chronyd ends where a file of points has a remark.</source>
        <translation>Zeile %2 von %1 ist ein Kommentar, und chronyd beendet sich, wenn eine Punktedatei einen Kommentar hat.</translation>
    </message>
    <message>
        <source>Line %2 of %1 does not begin with a temperature and a compensation in numbers.</source>
        <translation>Zeile %2 von %1 beginnt nicht mit einer Temperatur und einer Kompensation als Zahlen.</translation>
    </message>
    <message>
        <source>Line %2 of %1 compensates by more than 10 ppm, which chronyd ignores.</source>
        <translation>Zeile %2 von %1 kompensiert um mehr als 10 ppm, was chronyd nicht beachtet.</translation>
    </message>
    <message>
        <source>Line %2 of %1 has the same temperature as the line before, so that chronyd&apos;s compensation would be infinite.</source>
        <translation>Zeile %2 von %1 hat dieselbe Temperatur wie die Zeile davor, sodass die Kompensation von chronyd unendlich wäre.</translation>
    </message>
    <message>
        <source>Line %2 of %1 has a lower temperature than the line before, and chronyd would compensate wrongly.</source>
        <translation>Zeile %2 von %1 hat eine niedrigere Temperatur als die Zeile davor, und chronyd würde falsch kompensieren.</translation>
    </message>
    <message>
        <source>%1 ends in line %2 with fewer than two points, and chronyd does not start with it.</source>
        <translation>%1 endet in Zeile %2 mit weniger als zwei Punkten, und chronyd startet damit nicht.</translation>
    </message>
    <message>
        <source>The service that keeps it comes with the program&apos;s package, which is not installed.</source>
        <translation>Der Dienst, der sie führt, kommt mit dem Paket des Programms, und das ist nicht installiert.</translation>
    </message>
    <message>
        <source>Your session has no systemd that runs services of yours: %c.</source>
        <translation>Ihre Sitzung hat kein systemd, das eigene Dienste ausführt: %c.</translation>
    </message>
    <message>
        <source>The service that keeps the history could not be switched: %c.</source>
        <translation>Der Dienst, der die Aufzeichnung führt, ließ sich nicht umschalten: %c.</translation>
    </message>
    <message>
        <source>There is no %2 log of chrony in %1.</source>
        <translation>In %1 liegt kein Protokoll »%2« von chrony.</translation>
    </message>
    <message>
        <source>The journal of this machine cannot be read: %c.</source>
        <translation>Das Journal dieses Rechners kann nicht gelesen werden: %c.</translation>
    </message>
    <message>
        <source>Lines of %1 that are no records of this log were left out: %2.</source>
        <translation>Zeilen in %1, die keine Einträge dieses Protokolls sind, wurden ausgelassen: %2.</translation>
    </message>
    <message>
        <source>The demonstration has ended.</source>
        <translation>Die Vorführung ist zu Ende.</translation>
    </message>
    <message>
        <source>The demonstration&apos;s chronyd did not come up, and runs with the former configuration: %c.</source>
        <translation>Der chronyd der Vorführung kam nicht hoch und läuft mit der früheren Konfiguration: %c.</translation>
    </message>
    <message>
        <source>The demonstration&apos;s chronyd does not run: %c.</source>
        <translation>Der chronyd der Vorführung läuft nicht: %c.</translation>
    </message>
    <message>
        <source>%1 does not say when its points were read, so that days cannot be told apart.</source>
        <translation>%1 sagt nicht, wann die Punkte gelesen wurden; Tage lassen sich daher nicht unterscheiden.</translation>
    </message>
    <message>
        <source>The temperatures go back %1 days; a compensation needs 3 at least.</source>
        <translation>Die Temperaturen reichen %1 Tage zurück; eine Kompensation braucht mindestens 3.</translation>
    </message>
    <message>
        <source>Only %1 days have enough temperatures; a compensation needs 3 at least.</source>
        <translation>Nur %1 Tage haben genügend Temperaturen; eine Kompensation braucht mindestens 3.</translation>
    </message>
    <message>
        <source>The temperatures lie within %1 degrees; a compensation needs 5 at least.</source>
        <translation>Die Temperaturen liegen innerhalb von %1 Grad; eine Kompensation braucht mindestens 5.</translation>
    </message>
    <message>
        <source>The frequency changes by %1 ppm; a compensation can take out 18 at most.</source>
        <translation>Die Frequenz ändert sich um %1 ppm; eine Kompensation kann höchstens 18 ausgleichen.</translation>
    </message>
    <message>
        <source>On days that it was not made of, the compensation would make the clock %1 to %2 times steadier, so that a gain is not sure.</source>
        <translation>An Tagen, aus denen sie nicht gebildet wurde, würde die Kompensation die Uhr %1- bis %2-mal ruhiger machen; ein Gewinn ist also nicht sicher.</translation>
    </message>
    <message>
        <source>Line %2 of %1 is no number.</source>
        <translation>Zeile %2 von %1 ist keine Zahl.</translation>
    </message>
    <message>
        <source>%1 has too few numbers: three of phase or two of frequency are the least.</source>
        <translation>%1 enthält zu wenige Zahlen: Mindestens drei der Phase oder zwei der Frequenz sind nötig.</translation>
    </message>
    <message>
        <source>An averaging time of %1 s is shorter than the step of %2 s.</source>
        <translation>Eine Mittelungszeit von %1 s ist kürzer als der Abstand von %2 s.</translation>
    </message>
    <message>
        <source>Every averaging time is too much work for more than %1 values; choose octave or decade.</source>
        <translation>Alle Mittelungszeiten sind bei mehr als %1 Werten zu viel Arbeit; wählen Sie octave oder decade.</translation>
    </message>
    <message>
        <source>%1 has temperatures in degrees, while the sensor gives thousandths of a degree.</source>
        <translation>%1 enthält Temperaturen in Grad, während der Sensor Tausendstel Grad angibt.</translation>
    </message>
    <message>
        <source>The picture %1 must end in .png, .svg or .pdf.</source>
        <translation>Das Bild %1 muss auf .png, .svg oder .pdf enden.</translation>
    </message>
    <message>
        <source>The compensation was not installed: %c.</source>
        <translation>Die Kompensation wurde nicht installiert: %c.</translation>
    </message>
    <message>
        <source>The compensation was not taken back: %c.</source>
        <translation>Die Kompensation wurde nicht zurückgenommen: %c.</translation>
    </message>
    <message>
        <source>%1 has a line &quot;tempcomp&quot; of its own; take it out there first.</source>
        <translation>%1 hat eine eigene Zeile „tempcomp“; entfernen Sie diese dort zuerst.</translation>
    </message>
    <message>
        <source>The configuration holds no compensation that was installed here.</source>
        <translation>Die Konfiguration enthält keine Kompensation, die von hier aus installiert wurde.</translation>
    </message>
    <message>
        <source>chronyd cannot read the temperature with this configuration.</source>
        <translation>chronyd kann die Temperatur mit dieser Konfiguration nicht lesen.</translation>
    </message>
    <message>
        <source>chronyd cannot read the sensor %1: the kernel has no file of its own for it.</source>
        <translation>chronyd kann den Sensor %1 nicht lesen: Der Kernel hat dafür keine eigene Datei.</translation>
    </message>
    <message>
        <source>A compensation is installed where systemd starts chronyd.</source>
        <translation>Eine Kompensation wird nur installiert, wo systemd chronyd startet.</translation>
    </message>
    <message>
        <source>This is no sensor that the helper lets chronyd read.</source>
        <translation>Dies ist kein Sensor, den der Helfer chronyd lesen lässt.</translation>
    </message>
    <message>
        <source>The sensor %2 of the chip %1 is not there, or gives no temperature.</source>
        <translation>Der Sensor %2 des Chips %1 ist nicht vorhanden oder gibt keine Temperatur an.</translation>
    </message>
    <message>
        <source>This machine has no temperature sensor.</source>
        <translation>Dieser Rechner hat keinen Temperatursensor.</translation>
    </message>
    <message>
        <source>A periodogram needs %1 values at the least.</source>
        <translation>Ein Periodogramm braucht mindestens %1 Werte.</translation>
    </message>
    <message>
        <source>All values are the same: there is nothing to look for in them.</source>
        <translation>Alle Werte sind gleich: In ihnen ist nichts zu suchen.</translation>
    </message>
    <message>
        <source>This program has kept fewer than two readings of a clock that follows a source.</source>
        <translation>Dieses Programm hat weniger als zwei Ablesungen einer Uhr aufgehoben, die einer Quelle folgt.</translation>
    </message>
</context>
<context>
    <name>freqtemp</name>
    <message>
        <source>Sensors</source>
        <extracomment>frequency and temperature window: button with the menu of sensors, its name and its tooltip</extracomment>
        <translation>Sensoren</translation>
    </message>
    <message>
        <source>The sensors whose points are shown</source>
        <extracomment>frequency and temperature window: tooltip of the menu of sensors</extracomment>
        <translation>Die Sensoren, deren Punkte gezeigt werden</translation>
    </message>
    <message>
        <source>&amp;Sensors</source>
        <extracomment>frequency and temperature window: text of that button</extracomment>
        <translation>&amp;Sensoren</translation>
    </message>
    <message>
        <source>Order of the fit</source>
        <extracomment>frequency and temperature window: name of the menu that chooses the fitted curve, and its tooltip</extracomment>
        <translation>Grad der Ausgleichskurve</translation>
    </message>
    <message>
        <source>The curve that is fitted through the points</source>
        <extracomment>frequency and temperature window: tooltip of the menu of fitted curves</extracomment>
        <translation>Die Kurve, die den Punkten angepasst wird</translation>
    </message>
    <message>
        <source>Straight line</source>
        <extracomment>frequency and temperature window: fitted curves</extracomment>
        <translation>Gerade</translation>
    </message>
    <message>
        <source>Parabola (degree 2)</source>
        <extracomment>frequency and temperature window: fitted curve</extracomment>
        <translation>Parabel (Grad 2)</translation>
    </message>
    <message>
        <source>&amp;Points</source>
        <extracomment>frequency and temperature window: check box and its tooltip</extracomment>
        <translation>&amp;Punkte</translation>
    </message>
    <message>
        <source>Show every point that was measured</source>
        <extracomment>frequency and temperature window: tooltip of “Points”</extracomment>
        <translation>Alle gemessenen Punkte zeigen</translation>
    </message>
    <message>
        <source>Show the mean frequency at each degree</source>
        <extracomment>frequency and temperature window: tooltip of “Mean”</extracomment>
        <translation>Die mittlere Frequenz je Grad zeigen</translation>
    </message>
    <message>
        <source>Show one standard deviation above and below the fitted curve</source>
        <extracomment>frequency and temperature window: tooltip of “Bounds”</extracomment>
        <translation>Eine Standardabweichung über und unter der Ausgleichskurve zeigen</translation>
    </message>
    <message>
        <source>Mark each sensor&apos;s newest point</source>
        <extracomment>frequency and temperature window: tooltip of “Newest”</extracomment>
        <translation>Den neuesten Punkt jedes Sensors markieren</translation>
    </message>
    <message>
        <source>&amp;Clear…</source>
        <extracomment>frequency and temperature window: button, its name and tooltip</extracomment>
        <translation>&amp;Löschen …</translation>
    </message>
    <message>
        <source>Clear</source>
        <extracomment>frequency and temperature window: name of the button that deletes all points</extracomment>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete all points and begin anew</source>
        <extracomment>frequency and temperature window: tooltip of that button</extracomment>
        <translation>Alle Punkte löschen und neu beginnen</translation>
    </message>
    <message>
        <source>E&amp;xport…</source>
        <extracomment>frequency and temperature window: button, its name and tooltip</extracomment>
        <translation>E&amp;xportieren …</translation>
    </message>
    <message>
        <source>Export</source>
        <extracomment>frequency and temperature window: name of the button that exports</extracomment>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Save the plot as a picture, or the points shown as CSV (Ctrl+S)</source>
        <extracomment>frequency and temperature window: tooltip of that button</extracomment>
        <translation>Das Diagramm als Bild oder die gezeigten Punkte als CSV speichern (Strg+S)</translation>
    </message>
    <message>
        <source>Legend</source>
        <extracomment>frequency and temperature window: which colour is which sensor</extracomment>
        <translation>Legende</translation>
    </message>
    <message>
        <source>Reading</source>
        <extracomment>frequency and temperature window: name of the line that tells what is under the pointer</extracomment>
        <translation>Ablesung</translation>
    </message>
    <message>
        <source>Samples</source>
        <extracomment>frequency and temperature window: name of the number of points</extracomment>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>The largest number of points of any sensor</source>
        <extracomment>frequency and temperature window: tooltip of the number of points</extracomment>
        <translation>Die größte Zahl von Punkten eines Sensors</translation>
    </message>
    <message>
        <source>The most points kept for a sensor; the oldest go first</source>
        <extracomment>frequency and temperature window: tooltip of the field with the most points</extracomment>
        <translation>So viele Punkte werden je Sensor behalten; die ältesten fallen zuerst weg</translation>
    </message>
    <message>
        <source>of at m&amp;ost</source>
        <extracomment>frequency and temperature window: label of the field behind the number of points</extracomment>
        <translation>von &amp;höchstens</translation>
    </message>
    <message>
        <source>Frequency against temperature</source>
        <extracomment>frequency and temperature window: name of the plot
----------
exported plot: its title</extracomment>
        <translation>Frequenz über der Temperatur</translation>
    </message>
    <message>
        <source>%1 °C, %2 ppm</source>
        <extracomment>frequency and temperature window: what is under the pointer; %1 degrees Celsius, %2 a frequency</extracomment>
        <translation>%1 °C, %2 ppm</translation>
    </message>
    <message>
        <source>Point of %1: %2 °C, %3 ppm</source>
        <extracomment>frequency and temperature window: the point under the pointer; %1 a sensor, %2 degrees Celsius, %3 a frequency</extracomment>
        <translation>Punkt von %1: %2 °C, %3 ppm</translation>
    </message>
    <message>
        <source>Fit of %1: %2 ± %3 ppm</source>
        <extracomment>frequency and temperature window: the curve at that temperature; %1 a sensor, %2 a frequency, %3 its deviation</extracomment>
        <translation>Kurve von %1: %2 ± %3 ppm</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <extracomment>frequency and temperature window: end of a long legend</extracomment>
        <translation>
            <numerusform>und %n weiterer</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n point(s) of %1</source>
        <extracomment>frequency and temperature window: read out by screen readers; %1 is a sensor</extracomment>
        <translation>
            <numerusform>%n Punkt von %1</numerusform>
            <numerusform>%n Punkte von %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Looking for temperature sensors…</source>
        <extracomment>frequency and temperature window: shown in place of the points</extracomment>
        <translation>Temperatursensoren werden gesucht …</translation>
    </message>
    <message>
        <source>This machine shows no temperature sensor, so there is nothing to collect.
Virtual machines rarely have one. On a real machine, install the package lm-sensors, run sensors-detect as root, and open this window again.</source>
        <extracomment>frequency and temperature window: shown in place of the points</extracomment>
        <translation>Dieser Rechner zeigt keinen Temperatursensor, also gibt es nichts zu sammeln.
Virtuelle Maschinen haben selten einen. Auf einem echten Rechner installieren Sie das Paket lm-sensors, führen sensors-detect als root aus und öffnen dieses Fenster erneut.</translation>
    </message>
    <message>
        <source>The saved points in %1 belong to other sensors, and sensors are not added to a saved file.
Close this window and move the file away to collect points of the sensors that are here.</source>
        <extracomment>frequency and temperature window: shown in place of the points; %1 is a file</extracomment>
        <translation>Die gespeicherten Punkte in %1 gehören zu anderen Sensoren, und in eine gespeicherte Datei werden keine Sensoren aufgenommen.
Schließen Sie dieses Fenster und verschieben Sie die Datei, um Punkte der hiesigen Sensoren zu sammeln.</translation>
    </message>
    <message>
        <source>No sensor is selected. Choose some from the menu “Sensors”.</source>
        <extracomment>frequency and temperature window: shown in place of the points</extracomment>
        <translation>Es ist kein Sensor ausgewählt. Wählen Sie welche im Menü „Sensoren“ aus.</translation>
    </message>
    <message>
        <source>The selected sensors have no points yet. Others have: see the menu “Sensors”.</source>
        <extracomment>frequency and temperature window: shown in place of the points</extracomment>
        <translation>Die ausgewählten Sensoren haben noch keine Punkte. Andere haben welche: siehe Menü „Sensoren“.</translation>
    </message>
    <message>
        <source>Collecting: the first point comes with the next reading of the clock&apos;s frequency.</source>
        <extracomment>frequency and temperature window: shown in place of the points</extracomment>
        <translation>Es wird gesammelt: Der erste Punkt kommt mit dem nächsten Ablesen der Frequenz der Uhr.</translation>
    </message>
    <message>
        <source>Above degree 2 the curve is fitted with 1, x, x², x⁴, x⁸ and so on, but evaluated with ordinary powers 1, x, x², x³, x⁴: it need not follow the points.</source>
        <extracomment>frequency and temperature window: tooltip of the fitted curves above degree 2</extracomment>
        <translation>Über Grad 2 wird die Kurve mit 1, x, x², x⁴, x⁸ und so weiter angepasst, aber mit gewöhnlichen Potenzen 1, x, x², x³, x⁴ berechnet: Sie muss den Punkten nicht folgen.</translation>
    </message>
    <message>
        <source>The saved file %1 names no sensor, and sensors are not added to a saved file.
Close this window, which removes that file, and open it again to collect points.</source>
        <extracomment>frequency and temperature window: shown in place of the points; %1 is a file</extracomment>
        <translation>Die gespeicherte Datei %1 nennt keinen Sensor, und einer gespeicherten Datei werden keine hinzugefügt.
Schließen Sie dieses Fenster, was die Datei entfernt, und öffnen Sie es wieder, um Punkte zu sammeln.</translation>
    </message>
    <message>
        <source>%1; drawn %2</source>
        <extracomment>exported plot: %1 the kind of curve, %2 a date with time and zone</extracomment>
        <translation>%1; gezeichnet %2</translation>
    </message>
    <message>
        <source>Cubic (degree 3), ordinary powers</source>
        <extracomment>frequency and temperature window: fitted curve; its terms are fitted as 1, x, x², x⁴, but evaluated as 1, x, x², x³</extracomment>
        <translation>Kubisch (Grad 3), gewöhnliche Potenzen</translation>
    </message>
    <message>
        <source>Quartic (degree 4), ordinary powers</source>
        <extracomment>frequency and temperature window: fitted curve, see degree 3</extracomment>
        <translation>Quartisch (Grad 4), gewöhnliche Potenzen</translation>
    </message>
    <message>
        <source>Degree %1, ordinary powers</source>
        <extracomment>frequency and temperature window: fitted curve; %1 is a number above four; see degree 3</extracomment>
        <translation>Grad %1, gewöhnliche Potenzen</translation>
    </message>
    <message>
        <source>&amp;Mean per degree</source>
        <extracomment>frequency and temperature window: check box and its tooltip</extracomment>
        <translation>&amp;Mittel je Grad</translation>
    </message>
    <message>
        <source>Curve&apos;s sp&amp;read</source>
        <extracomment>frequency and temperature window: check box and its tooltip</extracomment>
        <translation>St&amp;reuung der Kurve</translation>
    </message>
    <message>
        <source>&amp;Newest point</source>
        <extracomment>frequency and temperature window: check box and its tooltip</extracomment>
        <translation>&amp;Neuester Punkt</translation>
    </message>
    <message>
        <source>Most points</source>
        <extracomment>frequency and temperature window: name and tooltip of the field with the most points that are kept</extracomment>
        <translation>Höchstzahl der Punkte</translation>
    </message>
    <message>
        <source>C&amp;urve:</source>
        <extracomment>frequency and temperature window: label of the menu that chooses the fitted curve</extracomment>
        <translation>K&amp;urve:</translation>
    </message>
    <message>
        <source>Points:</source>
        <extracomment>frequency and temperature window: label of the number of points</extracomment>
        <translation>Punkte:</translation>
    </message>
    <message>
        <source>Use for Compensat&amp;ion…</source>
        <extracomment>frequency and temperature window: button, its name and tooltip</extracomment>
        <translation>Zur Kompensation ver&amp;wenden…</translation>
    </message>
    <message>
        <source>Use for Compensation</source>
        <extracomment>frequency and temperature window: name of the button that offers a compensation</extracomment>
        <translation>Zur Kompensation verwenden</translation>
    </message>
    <message>
        <source>Look whether chronyd would keep the clock steadier by compensating for the temperature of the sensors shown, and install that</source>
        <extracomment>frequency and temperature window: tooltip of that button</extracomment>
        <translation>Prüfen, ob chronyd die Uhr ruhiger hielte, wenn es die Temperatur der gezeigten Sensoren kompensierte, und das installieren</translation>
    </message>
</context>
<context>
    <name>headline</name>
    <message>
        <source></source>
        <comment>Whether the clock is right, in the largest letters of the window. A reason follows the name of the state and a colon, so it begins with a small letter. %1, %2, … stand for numbers with their units, addresses and times of day.</comment>
        <translation></translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>Nicht verfügbar</translation>
    </message>
    <message>
        <source>Own time only</source>
        <translation>Nur eigene Zeit</translation>
    </message>
    <message>
        <source>Not synchronised</source>
        <translation>Nicht synchronisiert</translation>
    </message>
    <message>
        <source>Holdover since %1</source>
        <translation>Freilauf seit %1</translation>
    </message>
    <message>
        <source>Holdover</source>
        <translation>Freilauf</translation>
    </message>
    <message>
        <source>Correcting, %1 left</source>
        <translation>Wird korrigiert, noch %1</translation>
    </message>
    <message>
        <source>Synchronised, leap second pending</source>
        <translation>Synchronisiert, Schaltsekunde steht an</translation>
    </message>
    <message>
        <source>Synchronised</source>
        <translation>Synchronisiert</translation>
    </message>
    <message>
        <source>its only source, %1, does not answer.</source>
        <translation>ihre einzige Quelle, %1, antwortet nicht.</translation>
    </message>
    <message>
        <source>none of %1 sources answers.</source>
        <translation>keine von %1 Quellen antwortet.</translation>
    </message>
    <message>
        <source>chronyd has no source to ask.</source>
        <translation>chronyd hat keine Quelle, die es fragen könnte.</translation>
    </message>
    <message>
        <source>%1 sources contradict each other, and no majority tells which are right.</source>
        <translation>%1 Quellen widersprechen einander, und keine Mehrheit sagt, welche recht haben.</translation>
    </message>
    <message>
        <source>its only source, %1, cannot be used.</source>
        <translation>ihre einzige Quelle, %1, ist nicht brauchbar.</translation>
    </message>
    <message>
        <source>none of %1 sources can be used.</source>
        <translation>keine von %1 Quellen ist brauchbar.</translation>
    </message>
    <message>
        <source>%1 sources are used together.</source>
        <translation>%1 Quellen werden zusammen verwendet.</translation>
    </message>
    <message>
        <source>chronyd follows %1.</source>
        <translation>chronyd folgt %1.</translation>
    </message>
    <message>
        <source>chronyd follows %1, the best of %2 that it uses together.</source>
        <translation>chronyd folgt %1, der besten von %2, die es zusammen verwendet.</translation>
    </message>
    <message>
        <source>the clock is behind, and chronyd makes it run faster until it is right.</source>
        <translation>die Uhr geht nach, und chronyd lässt sie schneller laufen, bis sie richtig geht.</translation>
    </message>
    <message>
        <source>the clock is ahead, and chronyd makes it run slower until it is right.</source>
        <translation>die Uhr geht vor, und chronyd lässt sie langsamer laufen, bis sie richtig geht.</translation>
    </message>
    <message>
        <source>a second is put in at the end of this month (UTC).</source>
        <translation>am Ende dieses Monats (UTC) wird eine Sekunde eingefügt.</translation>
    </message>
    <message>
        <source>a second is left out at the end of this month (UTC).</source>
        <translation>am Ende dieses Monats (UTC) wird eine Sekunde ausgelassen.</translation>
    </message>
    <message>
        <source>chronyd takes this machine&apos;s own clock for right (directive local).</source>
        <translation>chronyd hält die Uhr dieses Rechners für richtig (Direktive local).</translation>
    </message>
    <message>
        <source>Nothing tells how far off the clock is.</source>
        <translation>Nichts sagt, wie weit die Uhr abweicht.</translation>
    </message>
    <message>
        <source>Certainly within ±%1, growing %2 an hour.</source>
        <translation>Sicher innerhalb ±%1, wachsend um %2 in der Stunde.</translation>
    </message>
    <message>
        <source>Certainly within ±%1, probably within ±%2.</source>
        <translation>Sicher innerhalb ±%1, wahrscheinlich innerhalb ±%2.</translation>
    </message>
    <message>
        <source>Certainly within ±%1.</source>
        <translation>Sicher innerhalb ±%1.</translation>
    </message>
    <message>
        <source>This chronyd was told to leave the system clock alone, so none of this is about the system clock.</source>
        <translation>Dieses chronyd soll die Systemuhr in Ruhe lassen; nichts davon betrifft also die Systemuhr.</translation>
    </message>
    <message>
        <source>Correcting</source>
        <extracomment>state of the clock while a large offset is being corrected</extracomment>
        <translation>Wird berichtigt</translation>
    </message>
</context>
<context>
    <name>helptopics</name>
    <message>
        <source></source>
        <comment>help window: the titles of its pages</comment>
        <translation></translation>
    </message>
    <message>
        <source>First steps</source>
        <translation>Erste Schritte</translation>
    </message>
    <message>
        <source>The windows</source>
        <translation>Die Fenster</translation>
    </message>
    <message>
        <source>Questions and answers</source>
        <translation>Fragen und Antworten</translation>
    </message>
</context>
<context>
    <name>history</name>
    <message>
        <source>found there</source>
        <translation>vorgefunden</translation>
    </message>
    <message>
        <source>installed</source>
        <translation>installiert</translation>
    </message>
    <message>
        <source>rolled back</source>
        <translation>zurückgeholt</translation>
    </message>
    <message>
        <source></source>
        <comment>former configurations: how one came to be installed.</comment>
        <translation></translation>
    </message>
    <message>
        <source>Save Evidence</source>
        <extracomment>history window: title of the dialog that asks for a file
----------
history window: title of a dialog</extracomment>
        <translation>Nachweis sichern</translation>
    </message>
    <message>
        <source>Document (*.pdf)</source>
        <extracomment>file dialog: kinds of file; the part in brackets stays</extracomment>
        <translation>Dokument (*.pdf)</translation>
    </message>
    <message>
        <source>Web page (*.html)</source>
        <translation>Webseite (*.html)</translation>
    </message>
    <message>
        <source>Limit</source>
        <extracomment>history window: name of a field, and its tooltip</extracomment>
        <translation>Grenze</translation>
    </message>
    <message>
        <source>How far off the clock may have been at the most</source>
        <translation>Wie weit die Uhr höchstens abgewichen sein darf</translation>
    </message>
    <message>
        <source>How long the clock was right within a limit, from %1 to %2, by the bound that chronyd itself wrote into its tracking log. Zoom first to choose another period.</source>
        <extracomment>history window: %1 and %2 are dates and times</extracomment>
        <translation>Wie lange die Uhr innerhalb einer Grenze richtig ging, von %1 bis %2, nach der Schranke, die chronyd selbst in sein Tracking-Protokoll schrieb. Für einen anderen Zeitraum vorher vergrößern.</translation>
    </message>
    <message>
        <source>Save…</source>
        <extracomment>history window: button of that dialog</extracomment>
        <translation>Sichern…</translation>
    </message>
    <message>
        <source>&amp;Limit:</source>
        <extracomment>history window: label of the field</extracomment>
        <translation>&amp;Grenze:</translation>
    </message>
    <message>
        <source>%1: from %2 to %3, the middle at %4</source>
        <extracomment>history window: what a screen reader says of the histogram; %1 is a curve, the others are values</extracomment>
        <translation>%1: von %2 bis %3, die Mitte bei %4</translation>
    </message>
    <message>
        <source>No values are in sight.</source>
        <extracomment>history window: in place of the histogram</extracomment>
        <translation>Es sind keine Werte zu sehen.</translation>
    </message>
    <message>
        <source>%1: %2 values; dashed: 5 %, median, 95 %</source>
        <extracomment>history window: above the histogram; %1 is a curve, %2 a number</extracomment>
        <translation>%1: %2 Werte; gestrichelt: 5 %, Median, 95 %</translation>
    </message>
    <message>
        <source>Range</source>
        <extracomment>history window: name of the menu of ranges, its tooltip, and its entries</extracomment>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>How much is in sight, up to the newest</source>
        <translation>Wie viel zu sehen ist, bis zum neuesten Wert</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 Stunde</translation>
    </message>
    <message>
        <source>6 hours</source>
        <translation>6 Stunden</translation>
    </message>
    <message>
        <source>1 day</source>
        <translation>1 Tag</translation>
    </message>
    <message>
        <source>1 week</source>
        <translation>1 Woche</translation>
    </message>
    <message>
        <source>30 days</source>
        <translation>30 Tage</translation>
    </message>
    <message>
        <source>1 year</source>
        <translation>1 Jahr</translation>
    </message>
    <message>
        <source>Own range</source>
        <translation>Eigener Zeitraum</translation>
    </message>
    <message>
        <source>Follow</source>
        <extracomment>history window: button that stays down, and its tooltip</extracomment>
        <translation>Folgen</translation>
    </message>
    <message>
        <source>Keep the newest reading in sight</source>
        <translation>Die neueste Ablesung im Blick behalten</translation>
    </message>
    <message>
        <source>Select</source>
        <extracomment>history window: button that stays down, and its tooltip</extracomment>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Dragging zooms to what is selected, as it does with Shift held; else it moves the plot</source>
        <translation>Ziehen vergrößert das Ausgewählte, wie sonst bei gehaltener Umschalttaste; andernfalls verschiebt es das Bild</translation>
    </message>
    <message>
        <source>Scale</source>
        <extracomment>history window: name of the menu of scales, its tooltip, and its entries</extracomment>
        <translation>Skala</translation>
    </message>
    <message>
        <source>How seconds stand on their axes: evenly, or by decades to both sides of zero</source>
        <translation>Wie Sekunden auf ihren Achsen stehen: gleichmäßig oder nach Dekaden zu beiden Seiten der Null</translation>
    </message>
    <message>
        <source>Suitable scale</source>
        <translation>Passende Skala</translation>
    </message>
    <message>
        <source>Even scale</source>
        <translation>Lineare Skala</translation>
    </message>
    <message>
        <source>Decades</source>
        <translation>Dekaden</translation>
    </message>
    <message>
        <source>Sources as</source>
        <extracomment>history window: name of the menu, its tooltip, and its entries</extracomment>
        <translation>Quellen als</translation>
    </message>
    <message>
        <source>How sources are shown</source>
        <translation>Wie Quellen gezeigt werden</translation>
    </message>
    <message>
        <source>Source states</source>
        <translation>Zustände der Quellen</translation>
    </message>
    <message>
        <source>Source offsets</source>
        <translation>Abweichungen der Quellen</translation>
    </message>
    <message>
        <source>&amp;Logs</source>
        <extracomment>history window: button with a menu, and its tooltip</extracomment>
        <translation>&amp;Protokolle</translation>
    </message>
    <message>
        <source>&amp;Open Log…</source>
        <extracomment>history window: menu items</extracomment>
        <translation>Protokoll ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;End Comparison</source>
        <extracomment>history window: menu item</extracomment>
        <translation>Vergleich &amp;beenden</translation>
    </message>
    <message>
        <source>Show &amp;All</source>
        <extracomment>history window: menu item</extracomment>
        <translation>&amp;Alles zeigen</translation>
    </message>
    <message>
        <source>Graph of the &amp;Tracking Log</source>
        <extracomment>history window: menu item, opens the window with the nine series of the tracking log</extracomment>
        <translation>Grafik des &amp;Tracking-Protokolls</translation>
    </message>
    <message>
        <source>Turn On &amp;Logs…</source>
        <extracomment>history window: menu item, has chrony write the logs that this window needs</extracomment>
        <translation>Protokolle &amp;einschalten…</translation>
    </message>
    <message>
        <source>&amp;Save Evidence…</source>
        <extracomment>history window: menu item, writes a document about how long the clock was right</extracomment>
        <translation>&amp;Nachweis sichern…</translation>
    </message>
    <message>
        <source>Events</source>
        <extracomment>history window: name of the table of events, and its headings
----------
history window: a tab</extracomment>
        <translation>Ereignisse</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Ereignis</translation>
    </message>
    <message>
        <source>What happened</source>
        <translation>Was geschah</translation>
    </message>
    <message>
        <source>&amp;Kinds</source>
        <extracomment>history window: button with a menu of kinds of events, and its tooltip</extracomment>
        <translation>&amp;Arten</translation>
    </message>
    <message>
        <source>Which kinds of events are shown</source>
        <translation>Welche Arten von Ereignissen gezeigt werden</translation>
    </message>
    <message>
        <source>Legend</source>
        <extracomment>history window: name of the legend, its headings, and its tooltip</extracomment>
        <translation>Legende</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>Kurve</translation>
    </message>
    <message>
        <source>A click on the box hides a curve; a double click, or Return, shows it alone in its panel</source>
        <translation>Ein Klick auf das Kästchen blendet eine Kurve aus; ein Doppelklick oder die Eingabetaste zeigt sie in ihrem Feld allein</translation>
    </message>
    <message>
        <source>Details</source>
        <extracomment>history window: name of the tabs</extracomment>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>Statistics of what is in sight</source>
        <extracomment>history window: name of the table of statistics, and its headings</extracomment>
        <translation>Statistik dessen, was zu sehen ist</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Std. dev.</source>
        <translation>Std.-Abw.</translation>
    </message>
    <message>
        <source>RMS</source>
        <translation>RMS</translation>
    </message>
    <message>
        <source>5 %</source>
        <translation>5 %</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>Median</translation>
    </message>
    <message>
        <source>95 %</source>
        <translation>95 %</translation>
    </message>
    <message>
        <source>99 %</source>
        <translation>99 %</translation>
    </message>
    <message>
        <source>Largest</source>
        <translation>Größter</translation>
    </message>
    <message>
        <source>Histogram</source>
        <extracomment>history window: name of the histogram
----------
history window: a tab</extracomment>
        <translation>Histogramm</translation>
    </message>
    <message>
        <source>Cursors</source>
        <extracomment>history window: name of the table of the two cursors, and its headings; Δ is the difference of the two
----------
history window: a tab</extracomment>
        <translation>Marken</translation>
    </message>
    <message>
        <source>At A</source>
        <translation>Bei A</translation>
    </message>
    <message>
        <source>At B</source>
        <translation>Bei B</translation>
    </message>
    <message>
        <source>Δ</source>
        <translation>Δ</translation>
    </message>
    <message>
        <source>Δ an hour</source>
        <extracomment>history window: heading; how much the curve rises in an hour</extracomment>
        <translation>Δ je Stunde</translation>
    </message>
    <message>
        <source>Source</source>
        <extracomment>history window: name of the text about a source
----------
history window: a tab</extracomment>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>A click on a source&apos;s lane tells how it stood at that time.</source>
        <extracomment>history window: in place of a source&apos;s explanation</extracomment>
        <translation>Ein Klick auf die Bahn einer Quelle sagt, wie es damals um sie stand.</translation>
    </message>
    <message>
        <source>Statistics</source>
        <extracomment>history window: tabs</extracomment>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>History of the clock</source>
        <extracomment>history window: name of the panels</extracomment>
        <translation>Verlauf der Uhr</translation>
    </message>
    <message>
        <source>Where the data come from</source>
        <extracomment>history window: name of the line that says where data come from</extracomment>
        <translation>Woher die Daten stammen</translation>
    </message>
    <message>
        <source>Offset</source>
        <extracomment>history window: names of curves</extracomment>
        <translation>Abweichung</translation>
    </message>
    <message>
        <source>Largest possible error</source>
        <translation>Größtmöglicher Fehler</translation>
    </message>
    <message>
        <source>Frequency</source>
        <extracomment>history window: title of a panel</extracomment>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Frequency ± skew</source>
        <translation>Frequenz ± Unsicherheit</translation>
    </message>
    <message>
        <source>Root delay</source>
        <translation>Laufzeit zur Wurzel</translation>
    </message>
    <message>
        <source>Root dispersion</source>
        <translation>Dispersion zur Wurzel</translation>
    </message>
    <message>
        <source>not available</source>
        <extracomment>history window: verdicts on the clock</extracomment>
        <translation>nicht verfügbar</translation>
    </message>
    <message>
        <source>own time only</source>
        <translation>nur eigene Zeit</translation>
    </message>
    <message>
        <source>not synchronised</source>
        <translation>nicht synchronisiert</translation>
    </message>
    <message>
        <source>holdover</source>
        <translation>Freilauf</translation>
    </message>
    <message>
        <source>correcting</source>
        <translation>wird berichtigt</translation>
    </message>
    <message>
        <source>synchronised, leap second pending</source>
        <translation>synchronisiert, Schaltsekunde steht an</translation>
    </message>
    <message>
        <source>synchronised</source>
        <translation>synchronisiert</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <extracomment>history window: from one date and time to another</extracomment>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>%1, compared</source>
        <extracomment>history window: a curve of the log that is laid over; %1 is its name</extracomment>
        <translation>%1, verglichen</translation>
    </message>
    <message>
        <source>%1, difference</source>
        <extracomment>history window: the curve of this log less that of the other; %1 is its name</extracomment>
        <translation>%1, Unterschied</translation>
    </message>
    <message>
        <source>The clock follows it</source>
        <extracomment>history window: legend of the lanes: how a source stands to the clock</extracomment>
        <translation>Die Uhr folgt ihr</translation>
    </message>
    <message>
        <source>Used with it</source>
        <translation>Wird mit ihr verwendet</translation>
    </message>
    <message>
        <source>Could be used</source>
        <translation>Könnte verwendet werden</translation>
    </message>
    <message>
        <source>Cannot be judged yet</source>
        <translation>Noch nicht zu beurteilen</translation>
    </message>
    <message>
        <source>Not believed</source>
        <translation>Wird nicht geglaubt</translation>
    </message>
    <message>
        <source>Does not answer</source>
        <translation>Antwortet nicht</translation>
    </message>
    <message>
        <source>Error</source>
        <extracomment>history window: titles of panels</extracomment>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Delay and dispersion</source>
        <extracomment>history window: title of a panel</extracomment>
        <translation>Laufzeit und Dispersion</translation>
    </message>
    <message>
        <source>Sources</source>
        <extracomment>history window: title of a panel</extracomment>
        <translation>Quellen</translation>
    </message>
    <message>
        <source>chronyd started</source>
        <extracomment>history window: kinds of events</extracomment>
        <translation>chronyd gestartet</translation>
    </message>
    <message>
        <source>chronyd ended</source>
        <translation>chronyd beendet</translation>
    </message>
    <message>
        <source>Clock stepped</source>
        <translation>Uhr gestellt</translation>
    </message>
    <message>
        <source>Another source</source>
        <translation>Andere Quelle</translation>
    </message>
    <message>
        <source>Source lost</source>
        <translation>Quelle verloren</translation>
    </message>
    <message>
        <source>False ticker</source>
        <translation>Falschgeher</translation>
    </message>
    <message>
        <source>No majority</source>
        <translation>Keine Mehrheit</translation>
    </message>
    <message>
        <source>Frequency jumped</source>
        <translation>Frequenzsprung</translation>
    </message>
    <message>
        <source>No records</source>
        <translation>Keine Aufzeichnungen</translation>
    </message>
    <message>
        <source>Time went back</source>
        <translation>Zeit ging zurück</translation>
    </message>
    <message>
        <source>Leap second</source>
        <translation>Schaltsekunde</translation>
    </message>
    <message>
        <source>Machine started</source>
        <translation>Rechner gestartet</translation>
    </message>
    <message>
        <source>Machine slept</source>
        <translation>Rechner schlief</translation>
    </message>
    <message>
        <source>Other message</source>
        <translation>Andere Meldung</translation>
    </message>
    <message>
        <source>State changed</source>
        <translation>Zustand gewechselt</translation>
    </message>
    <message>
        <source>Something was done</source>
        <translation>Etwas wurde getan</translation>
    </message>
    <message>
        <source>From “%1” to “%2”</source>
        <extracomment>history window: event; %1 and %2 are states such as &quot;synchronised&quot;</extracomment>
        <translation>Von „%1“ zu „%2“</translation>
    </message>
    <message>
        <source>The clock follows %1</source>
        <extracomment>history window: event; %1 is a source&apos;s address</extracomment>
        <translation>Die Uhr folgt %1</translation>
    </message>
    <message>
        <source>The clock follows %2 instead of %1</source>
        <extracomment>history window: event; %1 and %2 are addresses of sources</extracomment>
        <translation>Die Uhr folgt %2 statt %1</translation>
    </message>
    <message>
        <source>%1 is lost: the clock follows nothing</source>
        <extracomment>history window: event; %1 is a source&apos;s address</extracomment>
        <translation>%1 ist verloren: die Uhr folgt nichts</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>history window: event; %1 is the name of a job, %2 how it ended</extracomment>
        <translation>%1: %2</translation>
    </message>
    <message numerus="yes">
        <source>Blue bar: chrony&apos;s log (%n file(s)), %1.</source>
        <extracomment>history window: where data come from; %1 is a span of time, %n the number of files</extracomment>
        <translation>
            <numerusform>Blauer Balken: chronys Protokoll (%n Datei), %1.</numerusform>
            <numerusform>Blauer Balken: chronys Protokoll (%n Dateien), %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>Grey bar: readings of this program, %1.</source>
        <extracomment>history window: where data come from; %1 is a span of time</extracomment>
        <translation>Grauer Balken: Ablesungen dieses Programms, %1.</translation>
    </message>
    <message>
        <source>Nothing is known of the clock&apos;s past yet.

This program keeps a reading every few seconds: leave its main window open, and the history grows here by itself.
chrony&apos;s own logs go back further: choose “Turn On Logs…” to have chrony write them, or “Open Log…” for one from elsewhere.</source>
        <extracomment>history window: shown in place of the panels while there is nothing to show</extracomment>
        <translation>Von der Vergangenheit der Uhr ist noch nichts bekannt.

Dieses Programm bewahrt alle paar Sekunden eine Ablesung auf: lassen Sie sein Hauptfenster offen, und der Verlauf wächst hier von selbst.
chronys eigene Protokolle reichen weiter zurück: „Protokolle einschalten…“ lässt chrony sie schreiben, „Protokoll öffnen…“ zeigt eines von anderswo.</translation>
    </message>
    <message>
        <source>&lt;p&gt;&lt;b&gt;%1&lt;/b&gt; at %2&lt;/p&gt;&lt;p&gt;Nothing was kept of this source at that time: the program did not run, or the source was not configured.&lt;/p&gt;</source>
        <extracomment>history window: %1 is a source&apos;s address, %2 a date and time</extracomment>
        <translation>&lt;p&gt;&lt;b&gt;%1&lt;/b&gt; am %2&lt;/p&gt;&lt;p&gt;Von dieser Quelle ist aus dieser Zeit nichts aufbewahrt: das Programm lief nicht, oder die Quelle war nicht eingerichtet.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;&lt;b&gt;%1&lt;/b&gt; at %2&lt;/p&gt;&lt;p&gt;&lt;b&gt;%3&lt;/b&gt; (chrony&apos;s sign for it: %4), from %5 to %6.&lt;/p&gt;</source>
        <extracomment>history window: %1 is a source&apos;s address, %2 a date and time, %3 its state in words, %4 a letter, %5 and %6 times</extracomment>
        <translation>&lt;p&gt;&lt;b&gt;%1&lt;/b&gt; am %2&lt;/p&gt;&lt;p&gt;&lt;b&gt;%3&lt;/b&gt; (chronys Zeichen dafür: %4), von %5 bis %6.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Its newest polls: %1&lt;/p&gt;</source>
        <extracomment>history window: %1 are eight dots, full ones for polls that were answered</extracomment>
        <translation>&lt;p&gt;Ihre neuesten Abfragen: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Its offset: %1 at %2&lt;/p&gt;</source>
        <extracomment>history window: %1 is an offset, %2 a date and time</extracomment>
        <translation>&lt;p&gt;Ihre Abweichung: %1 am %2&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;&lt;i&gt;Not kept, so not known any more: the intervals by which chrony judged the sources against each other, and the answers of this one.&lt;/i&gt;&lt;/p&gt;</source>
        <extracomment>history window: below what is known of a source</extracomment>
        <translation>&lt;p&gt;&lt;i&gt;Nicht aufbewahrt, also nicht mehr bekannt: die Intervalle, nach denen chrony die Quellen gegeneinander beurteilte, und die Antworten dieser Quelle.&lt;/i&gt;&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Logs, comparison, export. A log or a folder that is dropped on the window is opened; with Shift held it is compared.</source>
        <translation>Protokolle, Vergleich, Export. Ein Protokoll oder ein Ordner, auf das Fenster gezogen, wird geöffnet, mit gehaltener Umschalttaste verglichen.</translation>
    </message>
    <message>
        <source>Open &amp;Folder of Logs…</source>
        <extracomment>history window: menu item, a folder with all logs of a machine</extracomment>
        <translation>&amp;Ordner mit Protokollen öffnen…</translation>
    </message>
    <message>
        <source>Compa&amp;re With…</source>
        <extracomment>history window: menu item, lays another machine&apos;s log over this one</extracomment>
        <translation>&amp;Vergleichen mit…</translation>
    </message>
    <message>
        <source>Compare &amp;With Folder…</source>
        <extracomment>history window: menu item, the same with a folder of logs</extracomment>
        <translation>&amp;Mit Ordner vergleichen …</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Compensation for temperature</source>
        <translation>Kompensation der Temperatur</translation>
    </message>
    <message>
        <source>Temperature, by chronyd</source>
        <extracomment>history window: a curve, the temperature that chronyd read</extracomment>
        <translation>Temperatur, laut chronyd</translation>
    </message>
    <message>
        <source>Difference</source>
        <extracomment>history window: title of a panel, of two machines&apos; offsets</extracomment>
        <translation>Unterschied</translation>
    </message>
    <message>
        <source>Temperature</source>
        <extracomment>history window: title of a panel</extracomment>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>This machine</source>
        <extracomment>history window: whose doing an event was, in brief; the next one is why</extracomment>
        <translation>Dieser Rechner</translation>
    </message>
    <message>
        <source>chronyd or this machine itself began, ended or was told to.</source>
        <translation>chronyd oder dieser Rechner selbst begann, endete oder wurde dazu aufgefordert.</translation>
    </message>
    <message numerus="yes">
        <source>Network: all %n silent</source>
        <extracomment>history window: whose doing an event was, in brief; %n sources did not answer</extracomment>
        <translation>
            <numerusform>Netz: alle %n schweigen</numerusform>
            <numerusform>Netz: alle %n schweigen</numerusform>
        </translation>
    </message>
    <message>
        <source>All sources fell silent at once: the network, or this machine&apos;s part of it.</source>
        <extracomment>history window: why</extracomment>
        <translation>Alle Quellen verstummten zugleich: das Netz oder der Anteil dieses Rechners daran.</translation>
    </message>
    <message>
        <source>%1: silent</source>
        <extracomment>history window: whose doing an event was, in brief; %1 is a source&apos;s address</extracomment>
        <translation>%1: schweigt</translation>
    </message>
    <message>
        <source>%1 no longer answered.</source>
        <extracomment>history window: why; %1 is a source&apos;s address</extracomment>
        <translation>%1 antwortete nicht mehr.</translation>
    </message>
    <message>
        <source>%1: not believed</source>
        <extracomment>history window: whose doing an event was, in brief; %1 is a source&apos;s address</extracomment>
        <translation>%1: nicht geglaubt</translation>
    </message>
    <message>
        <source>%1 said something else than the other sources, or was too uncertain.</source>
        <extracomment>history window: why; %1 is a source&apos;s address</extracomment>
        <translation>%1 sagte etwas anderes als die übrigen Quellen oder war zu ungewiss.</translation>
    </message>
    <message>
        <source>The sources</source>
        <extracomment>history window: whose doing an event was, in brief; and why</extracomment>
        <translation>Die Quellen</translation>
    </message>
    <message>
        <source>The sources disagreed, so that none could be believed.</source>
        <translation>Die Quellen widersprachen sich, so dass keiner zu glauben war.</translation>
    </message>
    <message>
        <source>Nobody</source>
        <extracomment>history window: whose doing an event was, in brief</extracomment>
        <translation>Niemand</translation>
    </message>
    <message>
        <source>%1 was still good: chronyd found another one better.</source>
        <extracomment>history window: why; %1 is a source&apos;s address</extracomment>
        <translation>%1 war noch gut: chronyd fand eine andere besser.</translation>
    </message>
    <message>
        <source>Temperature, %1 °C</source>
        <extracomment>history window: whose doing an event was, in brief; %1 is a number of degrees</extracomment>
        <translation>Temperatur, %1 °C</translation>
    </message>
    <message>
        <source>It changed so much in the hour before, and with it the machine&apos;s oscillator.</source>
        <extracomment>history window: why</extracomment>
        <translation>So viel änderte sie sich in der Stunde davor, und mit ihr der Schwinger des Rechners.</translation>
    </message>
    <message>
        <source>What was kept does not tell.</source>
        <extracomment>history window: why it is not said whose doing an event was</extracomment>
        <translation>Was aufgehoben wurde, verrät es nicht.</translation>
    </message>
    <message>
        <source>Compared with it: %1.</source>
        <extracomment>history window: what is laid over; %1 is a file or a folder</extracomment>
        <translation>Damit verglichen: %1.</translation>
    </message>
    <message>
        <source>Within ±%1: in what is in sight nothing tells.</source>
        <extracomment>history window: %1 is a time such as 1.00 ms</extracomment>
        <translation>Innerhalb von ±%1: Im Sichtbaren sagt nichts etwas darüber.</translation>
    </message>
    <message>
        <source>Certainly within ±%1 all the time of which something is known, %2.</source>
        <extracomment>history window: %1 is a time such as 1.00 ms, %2 a span of time</extracomment>
        <translation>Sicher innerhalb von ±%1 in der ganzen Zeit, von der etwas bekannt ist, %2.</translation>
    </message>
    <message numerus="yes">
        <source>Certainly within ±%1 for %2 % of the time; beyond it %n time(s), %3 in all, at the longest %4.</source>
        <extracomment>history window: %1 is a time such as 1.00 ms, %2 a number, %3 and %4 spans of time, %n how often</extracomment>
        <translation>
            <numerusform>Sicher innerhalb von ±%1 in %2 % der Zeit; %n Mal darüber, zusammen %3, am längsten %4.</numerusform>
            <numerusform>Sicher innerhalb von ±%1 in %2 % der Zeit; %n Mal darüber, zusammen %3, am längsten %4.</numerusform>
        </translation>
    </message>
    <message>
        <source>About the same</source>
        <extracomment>history window: a quantity before and after a moment</extracomment>
        <translation>Etwa gleich</translation>
    </message>
    <message>
        <source>%1 times smaller</source>
        <extracomment>history window: a quantity after a moment; %1 is a number above 1</extracomment>
        <translation>%1-mal kleiner</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>Kleiner</translation>
    </message>
    <message>
        <source>%1 times larger</source>
        <extracomment>history window: a quantity after a moment; %1 is a number above 1</extracomment>
        <translation>%1-mal größer</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>Größer</translation>
    </message>
    <message>
        <source>Too few values</source>
        <extracomment>history window: before or after a moment there are fewer than twenty values</extracomment>
        <translation>Zu wenige Werte</translation>
    </message>
    <message>
        <source>Da&amp;y</source>
        <extracomment>history window: button with a menu of nights and days, and its tooltip</extracomment>
        <translation>Ta&amp;g</translation>
    </message>
    <message>
        <source>A night, a day, or any other period (Ctrl+G)</source>
        <translation>Eine Nacht, ein Tag oder ein anderer Zeitraum (Strg+G)</translation>
    </message>
    <message>
        <source>&amp;From … to …</source>
        <extracomment>history window: menu item, asks from when to when</extracomment>
        <translation>&amp;Von … bis …</translation>
    </message>
    <message>
        <source>Error &amp;Limit</source>
        <extracomment>history window: menu of limits for the clock&apos;s error</extracomment>
        <translation>&amp;Grenze für den Fehler</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <extracomment>history window: menu item, no limit is drawn</extracomment>
        <translation>&amp;Keine</translation>
    </message>
    <message>
        <source>&amp;Evidence…</source>
        <extracomment>history window: button beside the list of events, and its tooltip</extracomment>
        <translation>&amp;Nachweis…</translation>
    </message>
    <message>
        <source>A document about how long the clock was right in what is in sight</source>
        <translation>Ein Dokument darüber, wie lange die Uhr im Sichtbaren richtig ging</translation>
    </message>
    <message>
        <source>Whose doing</source>
        <translation>Wessen Werk</translation>
    </message>
    <message>
        <source>Before and after</source>
        <extracomment>history window: name of a table, and its headings; sizes before cursor A and after it</extracomment>
        <translation>Vorher und nachher</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>95 % before</source>
        <translation>95 % vorher</translation>
    </message>
    <message>
        <source>95 % after</source>
        <translation>95 % nachher</translation>
    </message>
    <message>
        <source>Values before</source>
        <translation>Werte vorher</translation>
    </message>
    <message>
        <source>Values after</source>
        <translation>Werte nachher</translation>
    </message>
    <message>
        <source>How far 95 of 100 values in sight lay from zero before cursor A and after it; of frequencies and temperatures, from their middle</source>
        <extracomment>history window: tooltip of the table &quot;Before and after&quot;</extracomment>
        <translation>Wie weit 95 von 100 sichtbaren Werten vor Marke A und danach von null entfernt lagen; bei Frequenzen und Temperaturen von ihrer Mitte</translation>
    </message>
    <message>
        <source>Before/After</source>
        <extracomment>history window: a tab</extracomment>
        <translation>Vorher/Nachher</translation>
    </message>
    <message>
        <source>decades</source>
        <extracomment>history window: in a panel&apos;s title behind its unit, as in &quot;Error (µs, decades)&quot;: each line is ten times the one before it</extracomment>
        <translation>Dekaden</translation>
    </message>
    <message>
        <source>%1 night, %2</source>
        <extracomment>history window: menu of nights; %1 is a day of the week, %2 a date</extracomment>
        <translation>Nacht nach %1, %2</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <extracomment>history window: menu of days; %1 is a day of the week, %2 a date</extracomment>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Show a Period</source>
        <extracomment>history window: title of a dialog</extracomment>
        <translation>Einen Zeitraum zeigen</translation>
    </message>
    <message>
        <source>From</source>
        <extracomment>history window: fields of that dialog</extracomment>
        <translation>Von</translation>
    </message>
    <message>
        <source>To</source>
        <extracomment>history window: field of that dialog</extracomment>
        <translation>Bis</translation>
    </message>
    <message>
        <source>Show</source>
        <extracomment>history window: button of that dialog</extracomment>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>&amp;From:</source>
        <extracomment>history window: labels of the fields</extracomment>
        <translation>&amp;Von:</translation>
    </message>
    <message>
        <source>&amp;To:</source>
        <extracomment>history window: label of a field</extracomment>
        <translation>&amp;Bis:</translation>
    </message>
</context>
<context>
    <name>historyoffer</name>
    <message>
        <source></source>
        <comment>An offer in the main window: a service may keep the history of the clock while the window is closed.</comment>
        <translation></translation>
    </message>
    <message>
        <source>This program remembers how your clock was, as long as its window is open. Shall a small service go on with it while the window is closed? %1 · %2</source>
        <extracomment>main window, banner: an offer; %1 and %2 are links, the next two texts</extracomment>
        <translation>Dieses Programm merkt sich, wie Ihre Uhr ging, solange sein Fenster offen ist. Soll ein kleiner Dienst damit weitermachen, während das Fenster geschlossen ist? %1 · %2</translation>
    </message>
    <message>
        <source>Yes, keep a history</source>
        <translation>Ja, weiterführen</translation>
    </message>
    <message>
        <source>No, thank you</source>
        <translation>Nein, danke</translation>
    </message>
</context>
<context>
    <name>laboratory</name>
    <message>
        <source></source>
        <comment>What a clock&apos;s past says of it. %1, %2, … stand for spans of time, numbers and paths. Directives of chrony&apos;s configuration (maxpoll, minpoll) stay as they are.</comment>
        <translation></translation>
    </message>
    <message>
        <source>Over more than %1 the clock wanders more than the network shakes, and chronyd asks less often than that: minpoll %2 in place of %3 would follow it better.</source>
        <translation>Über mehr als %1 wandert die Uhr stärker, als das Netz schwankt, und chronyd fragt seltener: minpoll %2 statt %3 würde ihr besser folgen.</translation>
    </message>
    <message>
        <source>Over more than %1 the clock wanders more than the network shakes: asking less often loses accuracy. maxpoll %2 in place of %3 fits this clock.</source>
        <translation>Über mehr als %1 wandert die Uhr stärker, als das Netz schwankt: Seltener zu fragen kostet Genauigkeit. maxpoll %2 statt %3 passt zu dieser Uhr.</translation>
    </message>
    <message>
        <source>Only over more than %1 the clock wanders more than the network shakes: the longest poll interval that chronyd may choose (maxpoll %3) costs this clock no accuracy.</source>
        <translation>Erst über mehr als %1 wandert die Uhr stärker, als das Netz schwankt: Der längste Abstand, den chronyd wählen darf (maxpoll %3), kostet diese Uhr keine Genauigkeit.</translation>
    </message>
    <message>
        <source>Figures</source>
        <extracomment>laboratory, compensation: name of the table</extracomment>
        <translation>Zahlen</translation>
    </message>
    <message>
        <source>What it says</source>
        <extracomment>laboratory, compensation: name of the sentence above the chart
----------
laboratory: name of the sentence above the chart</extracomment>
        <translation>Was es sagt</translation>
    </message>
    <message>
        <source>Frequency against temperature</source>
        <extracomment>laboratory, compensation: name of the chart</extracomment>
        <translation>Frequenz gegen Temperatur</translation>
    </message>
    <message>
        <source>Legend</source>
        <extracomment>laboratory, compensation: name of the line that says which colour is what</extracomment>
        <translation>Legende</translation>
    </message>
    <message>
        <source>&amp;Frequency and Temperature</source>
        <extracomment>laboratory, compensation: button, and its tooltip</extracomment>
        <translation>&amp;Frequenz und Temperatur</translation>
    </message>
    <message>
        <source>Open the window that reads frequencies and temperatures together</source>
        <extracomment>laboratory, compensation: tooltip of a button</extracomment>
        <translation>Das Fenster öffnen, das Frequenzen und Temperaturen zusammen abliest</translation>
    </message>
    <message>
        <source>I&amp;nstall…</source>
        <extracomment>laboratory, compensation: button that installs, and its tooltip</extracomment>
        <translation>I&amp;nstallieren…</translation>
    </message>
    <message>
        <source>Have chronyd compensate for the temperature by this curve</source>
        <extracomment>laboratory, compensation: tooltip of a button</extracomment>
        <translation>chronyd die Temperatur nach dieser Kurve kompensieren lassen</translation>
    </message>
    <message>
        <source>Take &amp;Back…</source>
        <extracomment>laboratory, compensation: button that removes what is installed, and its tooltip</extracomment>
        <translation>Z&amp;urücknehmen…</translation>
    </message>
    <message>
        <source>Have chronyd run without the compensation that is installed</source>
        <extracomment>laboratory, compensation: tooltip of a button</extracomment>
        <translation>chronyd ohne die installierte Kompensation laufen lassen</translation>
    </message>
    <message>
        <source>measured</source>
        <extracomment>laboratory, compensation: what the blue dots are</extracomment>
        <translation>gemessen</translation>
    </message>
    <message>
        <source>curve</source>
        <extracomment>laboratory, compensation: what the red line is</extracomment>
        <translation>Kurve</translation>
    </message>
    <message>
        <source>as it would be with the compensation</source>
        <extracomment>laboratory, compensation: what the green dots are</extracomment>
        <translation>wie es mit der Kompensation wäre</translation>
    </message>
    <message>
        <source>Reading…</source>
        <extracomment>laboratory, compensation: while files are read</extracomment>
        <translation>Liest…</translation>
    </message>
    <message>
        <source>%1 ppm</source>
        <extracomment>laboratory, compensation: a frequency; %1 is a number</extracomment>
        <translation>%1 ppm</translation>
    </message>
    <message>
        <source>%1 times</source>
        <extracomment>laboratory, compensation: how many times steadier a clock is; %1 is a number</extracomment>
        <translation>%1-mal</translation>
    </message>
    <message>
        <source>%1 (%2 to %3)</source>
        <extracomment>laboratory, compensation: a gain with its interval; %1 is &quot;4.1 times&quot;, %2 and %3 are numbers</extracomment>
        <translation>%1 (%2 bis %3)</translation>
    </message>
    <message>
        <source>No frequency was read together with a temperature yet.</source>
        <extracomment>laboratory, compensation: where there are no points yet</extracomment>
        <translation>Es wurde noch keine Frequenz zusammen mit einer Temperatur abgelesen.</translation>
    </message>
    <message>
        <source>Frequency within a day</source>
        <extracomment>laboratory, compensation: name of a figure, and what it means</extracomment>
        <translation>Frequenz innerhalb eines Tages</translation>
    </message>
    <message>
        <source>how far it goes up and down about its mean</source>
        <extracomment>laboratory, compensation: what a figure means</extracomment>
        <translation>wie weit sie um ihr Mittel schwankt</translation>
    </message>
    <message>
        <source>With the compensation</source>
        <extracomment>laboratory, compensation: name of a figure, and what it means</extracomment>
        <translation>Mit der Kompensation</translation>
    </message>
    <message>
        <source>on days that the compensation was not made of</source>
        <extracomment>laboratory, compensation: what a figure means</extracomment>
        <translation>an Tagen, aus denen die Kompensation nicht gewonnen wurde</translation>
    </message>
    <message>
        <source>Expected gain</source>
        <extracomment>laboratory, compensation: name of a figure, and what it means</extracomment>
        <translation>Erwarteter Gewinn</translation>
    </message>
    <message>
        <source>with 95 % certainty between the two limits</source>
        <extracomment>laboratory, compensation: what a figure means</extracomment>
        <translation>mit 95 % Sicherheit zwischen den beiden Grenzen</translation>
    </message>
    <message>
        <source>An hour without sources</source>
        <extracomment>laboratory, compensation: name of a figure, and what it means</extracomment>
        <translation>Eine Stunde ohne Quellen</translation>
    </message>
    <message>
        <source>%1 instead of %2</source>
        <extracomment>laboratory, compensation: %1 and %2 are times such as 430 µs</extracomment>
        <translation>%1 statt %2</translation>
    </message>
    <message>
        <source>how far the clock typically goes wrong when left to itself</source>
        <extracomment>laboratory, compensation: what a figure means</extracomment>
        <translation>wie weit die Uhr sich üblicherweise verstellt, wenn sie sich selbst überlassen ist</translation>
    </message>
    <message>
        <source>Installed since</source>
        <extracomment>laboratory, compensation: name of a figure</extracomment>
        <translation>Installiert seit</translation>
    </message>
    <message>
        <source>%1 instead of %2, by the log</source>
        <extracomment>laboratory, compensation: what was gained; %1 and %2 are frequencies such as 0.2 ppm</extracomment>
        <translation>%1 statt %2, nach dem Protokoll</translation>
    </message>
    <message>
        <source>not known yet</source>
        <extracomment>laboratory, compensation: in place of a figure</extracomment>
        <translation>noch nicht bekannt</translation>
    </message>
    <message>
        <source>Gained in the last day</source>
        <extracomment>laboratory, compensation: name of a figure</extracomment>
        <translation>Gewonnen am letzten Tag</translation>
    </message>
    <message>
        <source>Gained in the last week</source>
        <extracomment>laboratory, compensation: name of a figure</extracomment>
        <translation>Gewonnen in der letzten Woche</translation>
    </message>
    <message>
        <source>Before it was installed</source>
        <extracomment>laboratory, compensation: name of a figure, and what it means</extracomment>
        <translation>Vor der Installation</translation>
    </message>
    <message>
        <source>how far the frequency went up and down within a day</source>
        <extracomment>laboratory, compensation: what a figure means</extracomment>
        <translation>wie weit die Frequenz innerhalb eines Tages schwankte</translation>
    </message>
    <message>
        <source>%1 Keep the window “Frequency and Temperature” open for some days, with chronyd running.</source>
        <extracomment>laboratory, compensation: headline; %1 is a sentence</extracomment>
        <translation>%1 Lassen Sie das Fenster „Frequenz und Temperatur“ einige Tage offen, während chronyd läuft.</translation>
    </message>
    <message>
        <source>A compensation is not worthwhile. %1</source>
        <extracomment>laboratory, compensation: headline; %1 is a sentence</extracomment>
        <translation>Eine Kompensation lohnt sich nicht. %1</translation>
    </message>
    <message>
        <source>With a compensation the clock would be %1 times steadier while the temperature changes.</source>
        <extracomment>laboratory, compensation: headline; %1 is a number</extracomment>
        <translation>Mit einer Kompensation wäre die Uhr %1-mal so ruhig, während die Temperatur sich ändert.</translation>
    </message>
    <message>
        <source>A compensation is installed. What it gains shows after a day with chronyd&apos;s logs.</source>
        <extracomment>laboratory, compensation: headline</extracomment>
        <translation>Eine Kompensation ist installiert. Was sie bringt, zeigt sich nach einem Tag mit den Protokollen von chronyd.</translation>
    </message>
    <message>
        <source>A compensation is installed, and the clock is %1 times steadier by it.</source>
        <extracomment>laboratory, compensation: headline; %1 is a number</extracomment>
        <translation>Eine Kompensation ist installiert, und die Uhr ist durch sie %1-mal so ruhig.</translation>
    </message>
    <message>
        <source>The clock is less steady with the compensation that is installed (%1 times): take it back.</source>
        <extracomment>laboratory, compensation: headline; %1 is a number</extracomment>
        <translation>Die Uhr ist mit der installierten Kompensation unruhiger (%1-mal): Nehmen Sie sie zurück.</translation>
    </message>
    <message>
        <source>Sensor</source>
        <extracomment>laboratory, compensation: name of a figure</extracomment>
        <translation>Sensor</translation>
    </message>
    <message>
        <source>Not read</source>
        <extracomment>laboratory, compensation: in place of a figure</extracomment>
        <translation>Nicht gelesen</translation>
    </message>
    <message>
        <source>Forecast without sources</source>
        <extracomment>laboratory: title of the page&apos;s pictures</extracomment>
        <translation>Vorhersage ohne Quellen</translation>
    </message>
    <message>
        <source>Limit</source>
        <extracomment>laboratory: name of a field, and its tooltip</extracomment>
        <translation>Grenze</translation>
    </message>
    <message>
        <source>How far off the clock may be: the headline says until when it would not be further off</source>
        <extracomment>laboratory: tooltip of the field</extracomment>
        <translation>Wie falsch die Uhr gehen darf: Die Überschrift sagt, bis wann sie nicht falscher ginge</translation>
    </message>
    <message>
        <source>Share of the past</source>
        <extracomment>laboratory: name of a menu, and its tooltip</extracomment>
        <translation>Anteil der Vergangenheit</translation>
    </message>
    <message>
        <source>So much of the past stayed within the forecast</source>
        <extracomment>laboratory: tooltip of the menu</extracomment>
        <translation>So viel der Vergangenheit blieb innerhalb der Vorhersage</translation>
    </message>
    <message>
        <source>%1 % of the past</source>
        <extracomment>laboratory: entry of the menu; %1 is a number</extracomment>
        <translation>%1 % der Vergangenheit</translation>
    </message>
    <message>
        <source>L&amp;imit:</source>
        <extracomment>laboratory: label of the field</extracomment>
        <translation>Gre&amp;nze:</translation>
    </message>
    <message>
        <source>There is not enough history: even 5 minutes ahead need 50 minutes of it without a gap, and this has %1.</source>
        <extracomment>laboratory: in place of the chart; %1 is a span of time</extracomment>
        <translation>Es gibt nicht genug Vergangenheit: Schon 5 Minuten voraus brauchen 50 Minuten davon ohne Lücke, und hier sind es %1.</translation>
    </message>
    <message>
        <source>Time since the sources were lost</source>
        <extracomment>laboratory: title of the level axis</extracomment>
        <translation>Zeit seit dem Verlust der Quellen</translation>
    </message>
    <message>
        <source>Forecast from the past</source>
        <extracomment>laboratory: name of a curve</extracomment>
        <translation>Vorhersage aus der Vergangenheit</translation>
    </message>
    <message>
        <source>chronyd&apos;s own bound</source>
        <extracomment>laboratory: name of a curve
----------
laboratory: heading of the table of forecasts</extracomment>
        <translation>chronyds eigene Schranke</translation>
    </message>
    <message>
        <source>Error</source>
        <extracomment>laboratory: title of the upright axis</extracomment>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>limit %1</source>
        <extracomment>laboratory: beside a line in the chart; %1 is a span of time</extracomment>
        <translation>Grenze %1</translation>
    </message>
    <message>
        <source>Sources lost now: within %1, %2 %, for %3 and longer; the history tells no more.</source>
        <extracomment>laboratory: headline; %1 is a limit, %2 a number, %3 a span of time</extracomment>
        <translation>Quellen jetzt weg: innerhalb von %1, %2 %, für %3 und länger; mehr sagt die Vergangenheit nicht.</translation>
    </message>
    <message>
        <source>Sources lost now: within %1, %2 %, until %3</source>
        <extracomment>laboratory: headline; %1 is a limit, %2 a number, %3 a time of day</extracomment>
        <translation>Quellen jetzt weg: innerhalb von %1, %2 %, bis %3</translation>
    </message>
    <message>
        <source> (give or take: between %1 and %2).</source>
        <extracomment>laboratory: goes on from the headline; %1 and %2 are times of day</extracomment>
        <translation> (ungefähr: zwischen %1 und %2).</translation>
    </message>
    <message>
        <source> (give or take: until %1 at the least).</source>
        <extracomment>laboratory: goes on from the headline; %1 is a time of day</extracomment>
        <translation> (ungefähr: mindestens bis %1).</translation>
    </message>
    <message>
        <source>After %1 the clock would be off by at most %2 (between %3 and %4); chronyd&apos;s own bound would say %5.</source>
        <extracomment>laboratory: below the headline; %1 is a span of time, %2 to %4 how far the clock is off, %5 the same</extracomment>
        <translation>Nach %1 ginge die Uhr um höchstens %2 falsch (zwischen %3 und %4); chronyds eigene Schranke würde %5 sagen.</translation>
    </message>
    <message>
        <source>For %1 ahead %2 of history without a gap are needed; this has %3.</source>
        <extracomment>laboratory: goes on from there; %1 to %3 are spans of time</extracomment>
        <translation>Für %1 voraus sind %2 Vergangenheit ohne Lücke nötig; hier sind es %3.</translation>
    </message>
    <message>
        <source>After</source>
        <extracomment>laboratory: headings of the table of forecasts</extracomment>
        <translation>Nach</translation>
    </message>
    <message>
        <source>At least</source>
        <extracomment>laboratory: headings of the table of deviations: limits of the true one</extracomment>
        <translation>Mindestens</translation>
    </message>
    <message>
        <source>At most</source>
        <translation>Höchstens</translation>
    </message>
    <message>
        <source>%1 after %2: %3</source>
        <extracomment>laboratory: what is pointed at; %1 a curve, %2 a span of time, %3 how far the clock is off</extracomment>
        <translation>%1 nach %2: %3</translation>
    </message>
    <message>
        <source>, with %3 % between %1 and %2</source>
        <extracomment>laboratory: goes on from a value; %1 and %2 are its limits, %3 a number</extracomment>
        <translation>, mit %3 % zwischen %1 und %2</translation>
    </message>
    <message>
        <source>Values</source>
        <extracomment>laboratory: name of the table of values</extracomment>
        <translation>Werte</translation>
    </message>
    <message>
        <source>Remark</source>
        <extracomment>laboratory: name of the words below the headline</extracomment>
        <translation>Bemerkung</translation>
    </message>
    <message>
        <source>At the pointer</source>
        <extracomment>laboratory: name of the line that says what is pointed at</extracomment>
        <translation>Am Zeiger</translation>
    </message>
    <message>
        <source>Copy &amp;Values</source>
        <extracomment>laboratory: menu item, the table goes to the clipboard</extracomment>
        <translation>&amp;Werte kopieren</translation>
    </message>
    <message>
        <source>Computing…</source>
        <extracomment>laboratory: in place of the chart while it is being computed</extracomment>
        <translation>Rechnet…</translation>
    </message>
    <message>
        <source>Allan (ADEV)</source>
        <extracomment>laboratory: measures of stability: name and tooltip</extracomment>
        <translation>Allan (ADEV)</translation>
    </message>
    <message>
        <source>How much the mean frequency of one stretch differs from that of the next</source>
        <translation>Wie sehr die mittlere Frequenz einer Zeitspanne von der der nächsten abweicht</translation>
    </message>
    <message>
        <source>Allan, overlapping (OADEV)</source>
        <translation>Allan, überlappend (OADEV)</translation>
    </message>
    <message>
        <source>The same from stretches that overlap: the usual measure, surer than the plain one</source>
        <translation>Dasselbe aus überlappenden Spannen: das übliche Maß, sicherer als das einfache</translation>
    </message>
    <message>
        <source>Modified Allan (MDEV)</source>
        <translation>Allan, modifiziert (MDEV)</translation>
    </message>
    <message>
        <source>Tells white from flicker noise of the measurement, which Allan&apos;s does not</source>
        <translation>Unterscheidet weißes vom Funkelrauschen der Messung, was Allans Maß nicht tut</translation>
    </message>
    <message>
        <source>Time (TDEV)</source>
        <translation>Zeit (TDEV)</translation>
    </message>
    <message>
        <source>The same as the modified one, as a time: how far the time itself wanders</source>
        <translation>Dasselbe wie das modifizierte, als Zeit: wie weit die Zeit selbst wandert</translation>
    </message>
    <message>
        <source>Hadamard (HDEV)</source>
        <translation>Hadamard (HDEV)</translation>
    </message>
    <message>
        <source>As Allan&apos;s, but blind for a frequency that drifts evenly, as an aging crystal&apos;s does</source>
        <translation>Wie Allans Maß, doch blind für eine gleichmäßig driftende Frequenz, wie sie ein alternder Quarz hat</translation>
    </message>
    <message>
        <source>Largest error (MTIE)</source>
        <translation>Größter Fehler (MTIE)</translation>
    </message>
    <message>
        <source>The largest time error that came up within a stretch of that length</source>
        <translation>Der größte Zeitfehler, der in einer Spanne dieser Länge aufkam</translation>
    </message>
    <message>
        <source>white PM</source>
        <extracomment>laboratory: kind of noise; PM: of the phase</extracomment>
        <translation>weißes PM</translation>
    </message>
    <message>
        <source>flicker PM</source>
        <extracomment>laboratory: kind of noise; PM: of the phase</extracomment>
        <translation>Funkel-PM</translation>
    </message>
    <message>
        <source>white FM</source>
        <extracomment>laboratory: kind of noise; FM: of the frequency</extracomment>
        <translation>weißes FM</translation>
    </message>
    <message>
        <source>flicker FM</source>
        <extracomment>laboratory: kind of noise; FM: of the frequency</extracomment>
        <translation>Funkel-FM</translation>
    </message>
    <message>
        <source>random walk FM</source>
        <extracomment>laboratory: kind of noise; FM: of the frequency</extracomment>
        <translation>Zufallsweg-FM</translation>
    </message>
    <message>
        <source>a week</source>
        <extracomment>laboratory: period of a peak</extracomment>
        <translation>eine Woche</translation>
    </message>
    <message>
        <source>a day</source>
        <extracomment>laboratory: period of a peak</extracomment>
        <translation>ein Tag</translation>
    </message>
    <message>
        <source>12 h, half a day</source>
        <extracomment>laboratory: period of a peak</extracomment>
        <translation>12 h, ein halber Tag</translation>
    </message>
    <message>
        <source>an hour</source>
        <extracomment>laboratory: period of a peak</extracomment>
        <translation>eine Stunde</translation>
    </message>
    <message>
        <source>%1, a poll interval</source>
        <extracomment>laboratory: period of a peak; %1 is a span of time</extracomment>
        <translation>%1, ein Abfrageabstand</translation>
    </message>
    <message>
        <source>%1: %4 records from %2 to %3, one every %5</source>
        <extracomment>laboratory: what is used; %1 a log, %2 and %3 dates and times, %4 a number, %5 a span of time</extracomment>
        <translation>%1: %4 Einträge von %2 bis %3, einer alle %5</translation>
    </message>
    <message numerus="yes">
        <source>, in %n stretch(es) with gaps between them</source>
        <extracomment>laboratory: goes on from &quot;one every 64 s&quot;</extracomment>
        <translation>
            <numerusform>, in %n Abschnitt</numerusform>
            <numerusform>, in %n Abschnitten mit Lücken dazwischen</numerusform>
        </translation>
    </message>
    <message>
        <source>Periodogram of the clock</source>
        <extracomment>laboratory: title of the page&apos;s pictures</extracomment>
        <translation>Periodogramm der Uhr</translation>
    </message>
    <message>
        <source>Quantity</source>
        <extracomment>laboratory: name of a menu, and its tooltip</extracomment>
        <translation>Größe</translation>
    </message>
    <message>
        <source>In what rhythms are looked for</source>
        <extracomment>laboratory: tooltip of the menu</extracomment>
        <translation>Worin Rhythmen gesucht werden</translation>
    </message>
    <message>
        <source>Frequency of the clock</source>
        <extracomment>laboratory: entries of the menu: the oscillator&apos;s frequency, and the offsets that chronyd found</extracomment>
        <translation>Frequenz der Uhr</translation>
    </message>
    <message>
        <source>Offsets that chronyd found</source>
        <translation>Abweichungen, die chronyd fand</translation>
    </message>
    <message>
        <source>Without &amp;trend</source>
        <extracomment>laboratory: box, and its tooltip</extracomment>
        <translation>Ohne &amp;Trend</translation>
    </message>
    <message>
        <source>Without trend</source>
        <translation>Ohne Trend</translation>
    </message>
    <message>
        <source>Takes a straight line out first: a steady drift hides slow rhythms</source>
        <extracomment>laboratory: tooltip of the box</extracomment>
        <translation>Nimmt vorher eine Gerade heraus: Eine stetige Drift verdeckt langsame Rhythmen</translation>
    </message>
    <message>
        <source>Frequency; above: its period</source>
        <extracomment>laboratory: title of the level axis</extracomment>
        <translation>Frequenz; oben: ihre Periode</translation>
    </message>
    <message>
        <source>Single values</source>
        <extracomment>laboratory: name of a band: from the smallest to the largest of neighbouring values</extracomment>
        <translation>Einzelne Werte</translation>
    </message>
    <message>
        <source>Mean, with 95 % limits</source>
        <extracomment>laboratory: name of a curve</extracomment>
        <translation>Mittel, mit 95-%-Grenzen</translation>
    </message>
    <message>
        <source>Rhythms</source>
        <extracomment>laboratory: name of the marks of what stands out</extracomment>
        <translation>Rhythmen</translation>
    </message>
    <message>
        <source>Power spectral density (dB relative to 1 s²/Hz)</source>
        <extracomment>laboratory: title of the upright axis</extracomment>
        <translation>Spektrale Leistungsdichte (dB bezogen auf 1 s²/Hz)</translation>
    </message>
    <message>
        <source>Power spectral density (dB relative to 1 (s/s)²/Hz)</source>
        <translation>Spektrale Leistungsdichte (dB bezogen auf 1 (s/s)²/Hz)</translation>
    </message>
    <message>
        <source>No rhythm stands out from the noise.</source>
        <extracomment>laboratory: headline of the periodogram</extracomment>
        <translation>Kein Rhythmus ragt aus dem Rauschen.</translation>
    </message>
    <message>
        <source>The strongest rhythm has a period of %1: ±%2 (between %3 and %4).</source>
        <extracomment>laboratory: headline of the periodogram; %1 a period, %2 to %4 how strong it is</extracomment>
        <translation>Periode des stärksten Rhythmus: %1, mit ±%2 (zwischen %3 und %4).</translation>
    </message>
    <message>
        <source>What comes back each day is the temperature, as a rule: compensating it is worth a try.</source>
        <extracomment>laboratory: goes on from the headline</extracomment>
        <translation>Was täglich wiederkehrt, ist in der Regel die Temperatur: Sie zu kompensieren ist einen Versuch wert.</translation>
    </message>
    <message>
        <source>%1 values in even steps, by FFT.</source>
        <extracomment>laboratory: said of how the periodogram was made; %1 is a number</extracomment>
        <translation>%1 Werte in gleichen Schritten, durch FFT.</translation>
    </message>
    <message>
        <source>%1 values at uneven times, by Lomb and Scargle&apos;s method.</source>
        <translation>%1 Werte zu ungleichen Zeiten, nach Lomb und Scargle.</translation>
    </message>
    <message>
        <source>Period</source>
        <extracomment>laboratory: headings of the table of rhythms</extracomment>
        <translation>Periode</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Amplitude</source>
        <translation>Amplitude</translation>
    </message>
    <message>
        <source>Density</source>
        <translation>Dichte</translation>
    </message>
    <message>
        <source>By chance</source>
        <extracomment>laboratory: heading of the table of rhythms: how probable it is that noise alone does that</extracomment>
        <translation>Durch Zufall</translation>
    </message>
    <message>
        <source>Period %1 (%2): %3 dB</source>
        <extracomment>laboratory: what is pointed at; %1 a span of time, %2 a frequency, %3 a number</extracomment>
        <translation>Periode %1 (%2): %3 dB</translation>
    </message>
    <message>
        <source>, with 95 % between %1 and %2 dB</source>
        <extracomment>laboratory: goes on from a value; %1 and %2 are its limits</extracomment>
        <translation>, mit 95 % zwischen %1 und %2 dB</translation>
    </message>
    <message>
        <source>Below: not the clock</source>
        <extracomment>laboratory: name of a line in the chart: deviations below it are the network&apos;s noise</extracomment>
        <translation>Darunter: nicht die Uhr</translation>
    </message>
    <message>
        <source>Stability of the clock</source>
        <extracomment>laboratory: title of the page&apos;s pictures</extracomment>
        <translation>Stabilität der Uhr</translation>
    </message>
    <message>
        <source>Confidence</source>
        <extracomment>laboratory: name of a menu, and its tooltip</extracomment>
        <translation>Vertrauen</translation>
    </message>
    <message>
        <source>How probable it is that the true deviation lies within an error bar</source>
        <extracomment>laboratory: tooltip of the menu of confidences</extracomment>
        <translation>Wie wahrscheinlich die wahre Abweichung innerhalb eines Fehlerbalkens liegt</translation>
    </message>
    <message>
        <source>%1 % bars</source>
        <extracomment>laboratory: entry of the menu of confidences; %1 is a number</extracomment>
        <translation>Balken für %1 %</translation>
    </message>
    <message>
        <source>Averaging times</source>
        <extracomment>laboratory: name of a menu, and its tooltip</extracomment>
        <translation>Mittelungszeiten</translation>
    </message>
    <message>
        <source>Which averaging times are worked out</source>
        <extracomment>laboratory: tooltip of the menu of averaging times</extracomment>
        <translation>Welche Mittelungszeiten ausgerechnet werden</translation>
    </message>
    <message>
        <source>Doubling times</source>
        <extracomment>laboratory: averaging times: each twice as long as the one before, ten times as long, or all</extracomment>
        <translation>Verdoppelte Zeiten</translation>
    </message>
    <message>
        <source>Decades</source>
        <translation>Dekaden</translation>
    </message>
    <message>
        <source>All times</source>
        <translation>Alle Zeiten</translation>
    </message>
    <message>
        <source>Of the sources in chrony.conf, which is read for it; chronyd&apos;s own default is %1</source>
        <extracomment>laboratory: tooltip of the fields minpoll and maxpoll laboratory: tooltip of the fields minpoll and maxpoll</extracomment>
        <translation>Von den Quellen in chrony.conf, die dafür gelesen wird; chronyds eigene Voreinstellung ist %1</translation>
    </message>
    <message>
        <source>Choose a measure above.</source>
        <extracomment>laboratory: in place of the chart</extracomment>
        <translation>Wählen Sie oben ein Maß.</translation>
    </message>
    <message>
        <source>The log is too short for any of these averaging times.</source>
        <extracomment>laboratory: in place of the chart</extracomment>
        <translation>Das Protokoll ist für jede dieser Mittelungszeiten zu kurz.</translation>
    </message>
    <message>
        <source>Averaging time</source>
        <extracomment>laboratory: title of the level axis</extracomment>
        <translation>Mittelungszeit</translation>
    </message>
    <message>
        <source>Time</source>
        <extracomment>laboratory: titles of upright axes</extracomment>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Deviation of the frequency (s/s)</source>
        <translation>Abweichung der Frequenz (s/s)</translation>
    </message>
    <message>
        <source>Measure</source>
        <extracomment>laboratory: headings of the table of deviations</extracomment>
        <translation>Maß</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Deviation</source>
        <translation>Abweichung</translation>
    </message>
    <message>
        <source>Noise</source>
        <extracomment>laboratory: headings of the table of deviations: kind of noise, and what it is of</extracomment>
        <translation>Rauschen</translation>
    </message>
    <message>
        <source>Of what</source>
        <translation>Wovon</translation>
    </message>
    <message>
        <source>not the clock</source>
        <translation>nicht die Uhr</translation>
    </message>
    <message>
        <source>the clock</source>
        <translation>die Uhr</translation>
    </message>
    <message>
        <source>Within this log the clock nowhere surely wanders more than the network shakes: there is nothing to advise on poll intervals.</source>
        <extracomment>laboratory: in place of the advice on poll intervals</extracomment>
        <translation>In diesem Protokoll wandert die Uhr nirgends sicher mehr, als das Netz schwankt: Zu Abfrageabständen gibt es nichts zu raten.</translation>
    </message>
    <message>
        <source>How much the network shakes stands in chrony&apos;s tracking log only: without it nothing can be advised on poll intervals, and no point is told from the measurement.</source>
        <translation>Wie sehr das Netz schwankt, steht nur in chronys Tracking-Protokoll: Ohne es gibt es zu Abfrageabständen keinen Rat, und kein Punkt ist von der Messung zu unterscheiden.</translation>
    </message>
    <message>
        <source>%1 over %2: %3</source>
        <extracomment>laboratory: what is pointed at; %1 a measure, %2 a span of time, %3 a value</extracomment>
        <translation>%1 über %2: %3</translation>
    </message>
    <message>
        <source>; not the clock: the network shakes more than that</source>
        <extracomment>laboratory: goes on from a value: it is below the measurement&apos;s floor</extracomment>
        <translation>; nicht die Uhr: Das Netz schwankt mehr als das</translation>
    </message>
    <message>
        <source>Keep more points</source>
        <extracomment>laboratory, compensation: name of the button that has more points kept, and its tooltip</extracomment>
        <translation>Mehr Punkte behalten</translation>
    </message>
    <message>
        <source>So many points of each sensor are kept from now on: enough days for a compensation</source>
        <extracomment>laboratory, compensation: tooltip of that button</extracomment>
        <translation>So viele Punkte je Fühler werden von nun an behalten: genug Tage für eine Kompensation</translation>
    </message>
    <message>
        <source>The window “Frequency and Temperature” keeps %1 points of a sensor, and drops the oldest before there are enough days: it has to keep %2.</source>
        <extracomment>laboratory, compensation: why there are too few days; %1 and %2 are numbers</extracomment>
        <translation>Das Fenster „Frequenz und Temperatur“ behält %1 Punkte je Fühler und wirft die ältesten weg, bevor es genug Tage sind: Es muss %2 behalten.</translation>
    </message>
    <message>
        <source>&amp;Keep %1 Points</source>
        <extracomment>laboratory, compensation: button that has so many points kept; %1 is a number</extracomment>
        <translation>%1 Punkte &amp;behalten</translation>
    </message>
</context>
<context>
    <name>legend</name>
    <message>
        <source>Offset</source>
        <extracomment>tracking graph: a series</extracomment>
        <translation>Abweichung</translation>
    </message>
    <message>
        <source>Mean offset</source>
        <extracomment>tracking graph: a series</extracomment>
        <translation>Mittlere Abweichung</translation>
    </message>
    <message>
        <source>RMS offset</source>
        <extracomment>tracking graph: a series</extracomment>
        <translation>RMS-Abweichung</translation>
    </message>
    <message>
        <source>Offset&apos;s standard deviation</source>
        <extracomment>tracking graph: a series</extracomment>
        <translation>Standardabweichung</translation>
    </message>
    <message>
        <source>Remaining correction</source>
        <extracomment>tracking graph: a series</extracomment>
        <translation>Restkorrektur</translation>
    </message>
    <message>
        <source>Mean remaining correction</source>
        <extracomment>tracking graph: a series</extracomment>
        <translation>Mittlere Restkorrektur</translation>
    </message>
    <message>
        <source>RMS remaining correction</source>
        <extracomment>tracking graph: a series</extracomment>
        <translation>RMS-Restkorrektur</translation>
    </message>
    <message>
        <source>Root dispersion</source>
        <extracomment>tracking graph: a series</extracomment>
        <translation>Root-Dispersion</translation>
    </message>
    <message>
        <source>Frequency</source>
        <extracomment>tracking graph: a series</extracomment>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Legend</source>
        <extracomment>tracking graph: name of the panel with the series, their colours and the scale</extracomment>
        <translation>Legende</translation>
    </message>
    <message>
        <source>&amp;Logarithmic scale</source>
        <extracomment>tracking graph: checkbox, the value axis is logarithmic</extracomment>
        <translation>&amp;Logarithmische Skala</translation>
    </message>
    <message>
        <source>Logarithmic scale</source>
        <extracomment>tracking graph: name of that checkbox</extracomment>
        <translation>Logarithmische Skala</translation>
    </message>
    <message>
        <source>Colour of “%1”</source>
        <extracomment>tracking graph: name of a colour button; %1 is a series</extracomment>
        <translation>Farbe von „%1“</translation>
    </message>
    <message>
        <source>&amp;Default</source>
        <extracomment>tracking graph: legend&apos;s buttons</extracomment>
        <translation>&amp;Vorgabe</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <extracomment>tracking graph: legend&apos;s button that takes the changes back</extracomment>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Cl&amp;ose</source>
        <extracomment>tracking graph: legend&apos;s button that keeps the changes</extracomment>
        <translation>&amp;Schließen</translation>
    </message>
</context>
<context>
    <name>mainwindow</name>
    <message>
        <source>Local time</source>
        <extracomment>main window: name of the text that shows date and time</extracomment>
        <translation>Ortszeit</translation>
    </message>
    <message>
        <source>Quantity on the meter</source>
        <extracomment>main window: name of the menu that chooses the meter&apos;s quantity</extracomment>
        <translation>Größe auf dem Messgerät</translation>
    </message>
    <message>
        <source>System time</source>
        <extracomment>main window: the meter&apos;s quantities, in chrony&apos;s words</extracomment>
        <translation>Systemzeit</translation>
    </message>
    <message>
        <source>Last offset</source>
        <extracomment>main window: quantity of the meter, in chrony&apos;s words</extracomment>
        <translation>Letzte Abweichung</translation>
    </message>
    <message>
        <source>RMS offset</source>
        <extracomment>main window: quantity of the meter, in chrony&apos;s words</extracomment>
        <translation>RMS-Abweichung</translation>
    </message>
    <message>
        <source>Root delay</source>
        <extracomment>main window: quantity of the meter, in chrony&apos;s words</extracomment>
        <translation>Root-Delay</translation>
    </message>
    <message>
        <source>Root dispersion</source>
        <extracomment>main window: quantity of the meter, in chrony&apos;s words</extracomment>
        <translation>Root-Dispersion</translation>
    </message>
    <message>
        <source>Frequency</source>
        <extracomment>main window: quantity of the meter, in chrony&apos;s words</extracomment>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Meter value</source>
        <extracomment>main window: name of the text that shows the meter&apos;s value</extracomment>
        <translation>Messwert</translation>
    </message>
    <message>
        <source>State of chronyd</source>
        <extracomment>main window: name of the text beside the status image</extracomment>
        <translation>Zustand von chronyd</translation>
    </message>
    <message>
        <source>Clock adjustment</source>
        <extracomment>main window: name of the notice that the clock is left alone</extracomment>
        <translation>Stellen der Uhr</translation>
    </message>
    <message>
        <source>chronyd does not adjust the system clock.</source>
        <extracomment>main window: notice that chronyd was told not to adjust the system clock</extracomment>
        <translation>chronyd stellt die Systemuhr nicht nach.</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <extracomment>main window: button that opens the preferences</extracomment>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>Preferences</source>
        <extracomment>main window: name of the button that opens the preferences</extracomment>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Version of chronyc</source>
        <extracomment>main window: names of the version texts</extracomment>
        <translation>Version von chronyc</translation>
    </message>
    <message>
        <source>Version of chronyd</source>
        <extracomment>main window: name of a version text</extracomment>
        <translation>Version von chronyd</translation>
    </message>
    <message>
        <source>chronyc command</source>
        <extracomment>main window: name of the menu that chooses the report</extracomment>
        <translation>chronyc-Befehl</translation>
    </message>
    <message>
        <source>The chronyc report shown below</source>
        <extracomment>main window: tooltip of the command menu</extracomment>
        <translation>Der unten gezeigte Bericht von chronyc</translation>
    </message>
    <message>
        <source>&amp;Server:</source>
        <extracomment>main window: label of the server field, shown for the ntpdata report</extracomment>
        <translation>&amp;Server:</translation>
    </message>
    <message>
        <source>NTP server for ntpdata</source>
        <extracomment>main window: name of the server field</extracomment>
        <translation>NTP-Server für ntpdata</translation>
    </message>
    <message>
        <source>Server whose measurements are shown; empty for all of them</source>
        <extracomment>main window: tooltip of the server field</extracomment>
        <translation>Server, dessen Messungen gezeigt werden; leer für alle</translation>
    </message>
    <message>
        <source>&amp;IP addresses</source>
        <extracomment>main window: checkbox, addresses are shown as numbers</extracomment>
        <translation>&amp;IP-Adressen</translation>
    </message>
    <message>
        <source>IP addresses</source>
        <extracomment>main window: name of that checkbox</extracomment>
        <translation>IP-Adressen</translation>
    </message>
    <message>
        <source>Show numeric addresses, without asking for names</source>
        <extracomment>main window: tooltip</extracomment>
        <translation>Adressen als Zahlen zeigen, ohne nach Namen zu fragen</translation>
    </message>
    <message>
        <source>&amp;Original names</source>
        <extracomment>main window: checkbox, sources by the names of the configuration</extracomment>
        <translation>&amp;Ursprüngliche Namen</translation>
    </message>
    <message>
        <source>Original names</source>
        <extracomment>main window: name of that checkbox</extracomment>
        <translation>Ursprüngliche Namen</translation>
    </message>
    <message>
        <source>Show the sources by the names written in the configuration</source>
        <extracomment>main window: tooltip</extracomment>
        <translation>Die Quellen unter den Namen der Konfiguration zeigen</translation>
    </message>
    <message>
        <source>Update interval</source>
        <extracomment>main window: name of the field with the seconds between two readings</extracomment>
        <translation>Aktualisierungsabstand</translation>
    </message>
    <message>
        <source> s</source>
        <extracomment>main window: unit behind the interval, seconds</extracomment>
        <translation> s</translation>
    </message>
    <message>
        <source>Seconds between two readings, 1 to 60</source>
        <extracomment>main window: tooltip of the interval</extracomment>
        <translation>Sekunden zwischen zwei Ablesungen, 1 bis 60</translation>
    </message>
    <message>
        <source>&amp;Every</source>
        <extracomment>main window: label of the interval</extracomment>
        <translation>A&amp;lle</translation>
    </message>
    <message>
        <source>&amp;Report:</source>
        <extracomment>main window: label of the command menu</extracomment>
        <translation>&amp;Bericht:</translation>
    </message>
    <message>
        <source>Notice</source>
        <extracomment>main window: name of the banner with what holds for the whole run, such as demonstration mode</extracomment>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Clock</source>
        <extracomment>main window: names of the two instruments</extracomment>
        <translation>Uhr</translation>
    </message>
    <message>
        <source>Performance meter</source>
        <extracomment>main window: name of the meter beside the clock</extracomment>
        <translation>Messgerät</translation>
    </message>
    <message>
        <source>Output of chronyc</source>
        <extracomment>main window: name of the text view with chronyc&apos;s output</extracomment>
        <translation>Ausgabe von chronyc</translation>
    </message>
    <message>
        <source>Status</source>
        <extracomment>main window: name of the line that says what stands in the way</extracomment>
        <translation>Status</translation>
    </message>
    <message>
        <source>Wrong program</source>
        <extracomment>main window: name of the notice that a program is not chrony&apos;s</extracomment>
        <translation>Falsches Programm</translation>
    </message>
    <message>
        <source>Error bound</source>
        <extracomment>main window: quantity of the meter: how far off the clock can be at the most</extracomment>
        <translation>Fehlergrenze</translation>
    </message>
    <message>
        <source>What chronyd says of itself. It calls itself synchronised as long as it has any reference, be it its own clock or a server that is gone.</source>
        <extracomment>main window: tooltip of the state&apos;s words</extracomment>
        <translation>Was chronyd von sich selbst sagt. Es nennt sich synchronisiert, solange es irgendeine Referenz hat, und sei es die eigene Uhr oder ein Server, der nicht mehr da ist.</translation>
    </message>
    <message>
        <source>chronyd says:</source>
        <extracomment>main window: above the state that chronyd names, such as &quot;Synchronised&quot;</extracomment>
        <translation>chronyd sagt:</translation>
    </message>
    <message>
        <source>&amp;Preferences…</source>
        <extracomment>main window: button that opens the preferences</extracomment>
        <translation>E&amp;instellungen …</translation>
    </message>
    <message>
        <source>&amp;Use This System&apos;s chrony</source>
        <extracomment>main window: button in a demonstration that leaves it</extracomment>
        <translation>chrony dieses S&amp;ystems verwenden</translation>
    </message>
    <message>
        <source>Use this system&apos;s chrony</source>
        <extracomment>main window: name of the button that leaves the demonstration</extracomment>
        <translation>chrony dieses Systems verwenden</translation>
    </message>
    <message>
        <source>Starts the program again, without the demonstration</source>
        <extracomment>main window: tooltip of the button that leaves the demonstration</extracomment>
        <translation>Startet das Programm neu, ohne die Vorführung</translation>
    </message>
    <message>
        <source></source>
        <comment>The main window: how the clock is, its sources, and a report of chrony.</comment>
        <translation></translation>
    </message>
    <message>
        <source>Hide the report</source>
        <extracomment>main window: button that hides the report</extracomment>
        <translation>Bericht ausblenden</translation>
    </message>
    <message>
        <source>chronyc&apos;s report</source>
        <extracomment>title of the window with chronyc&apos;s report, where it stands apart from the main window</extracomment>
        <translation>Bericht von chronyc</translation>
    </message>
    <message>
        <source>Put the report back into the main window</source>
        <translation>Bericht zurück ins Hauptfenster holen</translation>
    </message>
    <message>
        <source>Show the report in a window of its own</source>
        <translation>Bericht in einem eigenen Fenster zeigen</translation>
    </message>
    <message>
        <source>Whose clock this is</source>
        <extracomment>main window: name of the banner that says whose clock is shown</extracomment>
        <translation>Wessen Uhr dies ist</translation>
    </message>
    <message>
        <source>&amp;Back to This Machine</source>
        <extracomment>main window: button that ends the showing of another machine&apos;s clock</extracomment>
        <translation>&amp;Zurück zu diesem Rechner</translation>
    </message>
    <message>
        <source>Back to this machine</source>
        <extracomment>main window: name of that button</extracomment>
        <translation>Zurück zu diesem Rechner</translation>
    </message>
</context>
<context>
    <name>mending</name>
    <message>
        <source></source>
        <comment>What one button of the main window mends where something is wrong with chrony, and the questions before.</comment>
        <translation></translation>
    </message>
    <message>
        <source>Turn on chrony&apos;s logging?</source>
        <extracomment>question before chrony&apos;s logs are turned on</extracomment>
        <translation>Protokolle von chrony einschalten?</translation>
    </message>
    <message>
        <source>%1 gets the line
%2
Then chronyd is restarted, and everybody on this computer may read its logs.

With the sources as they are now, the logs grow by about %3 a day.

If chronyd does not run with it, the former configuration comes back.</source>
        <extracomment>question before chrony&apos;s logs are turned on: %1 is a path, %2 a line of that file, %3 a size such as 1.2 MB</extracomment>
        <translation>%1 erhält die Zeile
%2
Danach wird chronyd neu gestartet, und alle an diesem Rechner dürfen seine Protokolle lesen.

Mit den jetzigen Quellen wachsen die Protokolle um etwa %3 am Tag.

Läuft chronyd damit nicht, kommt die bisherige Konfiguration zurück.</translation>
    </message>
    <message>
        <source>Turn On</source>
        <extracomment>buttons of that question</extracomment>
        <translation>Einschalten</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>menus</name>
    <message>
        <source></source>
        <comment>main window: menus and their items. The letter after an ampersand is the one that chooses the item together with Alt.</comment>
        <translation></translation>
    </message>
    <message>
        <source>&amp;Open Tracking Log…</source>
        <translation>Tracking-Protokoll ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;Live Tracking Graph</source>
        <translation>&amp;Laufende Tracking-Grafik</translation>
    </message>
    <message>
        <source>&amp;Edit Configuration…</source>
        <translation>Konfiguration bea&amp;rbeiten …</translation>
    </message>
    <message>
        <source>&amp;New Configuration</source>
        <translation>&amp;Neue Konfiguration</translation>
    </message>
    <message>
        <source>Open Con&amp;figuration…</source>
        <translation>&amp;Konfiguration öffnen …</translation>
    </message>
    <message>
        <source>&amp;Recent Configurations</source>
        <translation>&amp;Zuletzt geöffnete Konfigurationen</translation>
    </message>
    <message>
        <source>&amp;Preferences…</source>
        <translation>&amp;Einstellungen …</translation>
    </message>
    <message>
        <source>Check for &amp;Updates…</source>
        <translation>Nach Ak&amp;tualisierungen suchen …</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>Fenster s&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Refresh</source>
        <translation>&amp;Aktualisieren</translation>
    </message>
    <message>
        <source>Output &amp;Font…</source>
        <translation>&amp;Schrift der Ausgabe …</translation>
    </message>
    <message>
        <source>&amp;Default Output Font</source>
        <translation>&amp;Vorgegebene Schrift der Ausgabe</translation>
    </message>
    <message>
        <source>Show the Program&apos;s &amp;Log</source>
        <translation>Protokoll des P&amp;rogramms öffnen</translation>
    </message>
    <message>
        <source>&amp;Install chrony</source>
        <translation>chrony &amp;installieren</translation>
    </message>
    <message>
        <source>&amp;Start chronyd</source>
        <translation>chronyd &amp;starten</translation>
    </message>
    <message>
        <source>S&amp;top chronyd</source>
        <translation>chronyd an&amp;halten</translation>
    </message>
    <message>
        <source>Run chrony&amp;wake</source>
        <translation>chrony&amp;wake ausführen</translation>
    </message>
    <message>
        <source>&amp;Rotate Logs</source>
        <translation>Protokolle &amp;rotieren</translation>
    </message>
    <message>
        <source>S&amp;ynchronise Now…</source>
        <translation>Jetzt s&amp;ynchronisieren …</translation>
    </message>
    <message>
        <source>Step the &amp;Clock…</source>
        <translation>&amp;Uhr stellen …</translation>
    </message>
    <message>
        <source>&amp;Main Window</source>
        <translation>&amp;Hauptfenster</translation>
    </message>
    <message>
        <source>&amp;Servers</source>
        <translation>&amp;Server</translation>
    </message>
    <message>
        <source>&amp;Frequency and Temperature</source>
        <translation>&amp;Frequenz und Temperatur</translation>
    </message>
    <message>
        <source>Sensor &amp;Inspector</source>
        <translation>Sensor-&amp;Inspektor</translation>
    </message>
    <message>
        <source>S&amp;pectrum</source>
        <translation>S&amp;pektrum</translation>
    </message>
    <message>
        <source>chrony.&amp;conf</source>
        <translation>chrony.&amp;conf</translation>
    </message>
    <message>
        <source>c&amp;hronyc</source>
        <translation>c&amp;hronyc</translation>
    </message>
    <message>
        <source>chrony&amp;d</source>
        <translation>chrony&amp;d</translation>
    </message>
    <message>
        <source>chrony&amp;wake</source>
        <translation>chrony&amp;wake</translation>
    </message>
    <message>
        <source>&amp;Questions and Answers</source>
        <translation>&amp;Fragen und Antworten</translation>
    </message>
    <message>
        <source>&amp;Tickervantage on the Web</source>
        <translation>&amp;Tickervantage im Web</translation>
    </message>
    <message>
        <source>ch&amp;rony on the Web</source>
        <translation>ch&amp;rony im Web</translation>
    </message>
    <message>
        <source>D&amp;onate…</source>
        <translation>&amp;Spenden …</translation>
    </message>
    <message>
        <source>&amp;About Tickervantage</source>
        <translation>&amp;Über Tickervantage</translation>
    </message>
    <message>
        <source>Not part of this version</source>
        <extracomment>tooltip of a menu item that cannot be used</extracomment>
        <translation>Nicht in dieser Version</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <extracomment>titles of the menus</extracomment>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Chrony</source>
        <translation>&amp;Chrony</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Uninstall chrony…</source>
        <translation>chrony &amp;deinstallieren …</translation>
    </message>
    <message>
        <source>&amp;First Steps</source>
        <translation>&amp;Erste Schritte</translation>
    </message>
    <message>
        <source>The W&amp;indows</source>
        <translation>Die Fe&amp;nster</translation>
    </message>
    <message>
        <source>&amp;Former Configurations…</source>
        <translation>&amp;Frühere Konfigurationen …</translation>
    </message>
    <message>
        <source>Recent Tracking Logs</source>
        <translation>Zuletzt geöffnete Tracking-Protokolle</translation>
    </message>
    <message>
        <source>chronyc&apos;s R&amp;eport</source>
        <translation>B&amp;ericht von chronyc</translation>
    </message>
    <message>
        <source>Report in a &amp;Window of Its Own</source>
        <translation>Bericht in eigene&amp;m Fenster</translation>
    </message>
    <message>
        <source>Open &amp;chrony&apos;s Log Folder</source>
        <translation>Ordner von &amp;chronys Protokollen öffnen</translation>
    </message>
    <message>
        <source>Open the Program&apos;s Log F&amp;older</source>
        <translation>&amp;Ordner des Programmprotokolls öffnen</translation>
    </message>
    <message>
        <source>Histor&amp;y of the Clock</source>
        <translation>&amp;Verlauf der Uhr</translation>
    </message>
    <message>
        <source>Copies chrony&apos;s programs and services to this computer, and starts chronyd</source>
        <translation>Kopiert die Programme und Dienste von chrony auf diesen Rechner und startet chronyd</translation>
    </message>
    <message>
        <source>Removes what was installed there; the configuration and the logs stay</source>
        <translation>Entfernt, was so installiert wurde; Konfiguration und Protokolle bleiben</translation>
    </message>
    <message>
        <source>Starts the service that keeps this clock right</source>
        <translation>Startet den Dienst, der diese Uhr richtig hält</translation>
    </message>
    <message>
        <source>Stops that service: nothing keeps this clock right then</source>
        <translation>Hält diesen Dienst an: Dann hält nichts diese Uhr richtig</translation>
    </message>
    <message>
        <source>Corrects the clock, as it is done when the machine has slept</source>
        <translation>Stellt die Uhr richtig, wie es nach dem Ruhezustand geschieht</translation>
    </message>
    <message>
        <source>Compares the configurations that were installed before, and brings one back</source>
        <translation>Vergleicht die zuvor installierten Konfigurationen und holt eine zurück</translation>
    </message>
    <message>
        <source>Sets chrony&apos;s log files aside under other names, and begins new ones</source>
        <translation>Legt die Protokolle von chrony unter anderem Namen beiseite und beginnt neue</translation>
    </message>
    <message>
        <source>Stops chronyd, sets the clock once by a server, and starts chronyd again</source>
        <translation>Hält chronyd an, stellt die Uhr einmal nach einem Server und startet chronyd wieder</translation>
    </message>
    <message>
        <source>Sets the clock forward or back at once, by as many seconds as you say</source>
        <translation>Stellt die Uhr sofort um so viele Sekunden vor oder zurück, wie Sie angeben</translation>
    </message>
    <message>
        <source>Clock &amp;Laboratory</source>
        <translation>Uhren&amp;labor</translation>
    </message>
    <message>
        <source>Dae&amp;mon</source>
        <translation>Dae&amp;mon</translation>
    </message>
</context>
<context>
    <name>offers</name>
    <message>
        <source></source>
        <comment>alerts that offer at the start to install chrony, or to use the chrony that the system has.</comment>
        <translation></translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>The chronyd ntp daemon is not configured/installed.</source>
        <comment>first run: line 1</comment>
        <translation>Der NTP-Daemon chronyd ist nicht konfiguriert oder nicht installiert.</translation>
    </message>
    <message>
        <source>
Do you wish to install the privileged components?</source>
        <comment>first run: line 2</comment>
        <translation>
Möchten Sie die privilegierten Komponenten installieren?</translation>
    </message>
    <message>
        <source>Warning: Version mismatch</source>
        <translation>Warnung: Versionen stimmen nicht überein</translation>
    </message>
    <message>
        <source>Installed: </source>
        <comment>compare versions line 1</comment>
        <translation>Installiert: </translation>
    </message>
    <message>
        <source> Embedded: </source>
        <comment>compare versions line 2</comment>
        <translation> Mitgeliefert: </translation>
    </message>
    <message>
        <source>Do you wish to re-install chronyd</source>
        <comment>compare versions line 3</comment>
        <translation>Möchten Sie chronyd neu installieren?</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>Installieren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Use the chrony of this system?</source>
        <comment>system chrony: title</comment>
        <translation>Das chrony dieses Systems verwenden?</translation>
    </message>
    <message>
        <source>This system has a chrony of its own, which its packages keep up to date:</source>
        <comment>system chrony: line 1</comment>
        <translation>Dieses System hat ein eigenes chrony, das seine Pakete auf dem neuesten Stand halten:</translation>
    </message>
    <message>
        <source>The program can show and steer that one instead of installing another.</source>
        <comment>system chrony: last line</comment>
        <translation>Das Programm kann dieses zeigen und steuern, statt ein weiteres zu installieren.</translation>
    </message>
    <message>
        <source>Use It</source>
        <comment>system chrony: button</comment>
        <translation>Verwenden</translation>
    </message>
    <message>
        <source>The chrony of this system is used.</source>
        <comment>system chrony in use: title</comment>
        <translation>Das chrony dieses Systems wird verwendet.</translation>
    </message>
    <message>
        <source>Preferences has other paths.</source>
        <comment>system chrony in use: last line</comment>
        <translation>Andere Pfade gibt es in den Einstellungen.</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <comment>system chrony in use: button</comment>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>They take the place of the chrony that this system has, and give up what its packages provide: updates by the system, and the confinement by AppArmor.</source>
        <comment>first run: where the system has a chrony of its own</comment>
        <translation>Sie treten an die Stelle des chrony, das dieses System hat, und geben auf, was dessen Pakete bieten: Aktualisierungen durch das System und die Abschottung durch AppArmor.</translation>
    </message>
</context>
<context>
    <name>plot_export</name>
    <message>
        <source>&amp;Copy Picture</source>
        <extracomment>plot windows: menu item, the plot goes to the clipboard</extracomment>
        <translation>Bild &amp;kopieren</translation>
    </message>
    <message>
        <source>E&amp;xport…</source>
        <extracomment>plot windows: menu item, the plot or its numbers go to a file</extracomment>
        <translation>E&amp;xportieren …</translation>
    </message>
    <message>
        <source>The picture is on the clipboard.</source>
        <extracomment>plot windows: said after the plot was copied</extracomment>
        <translation>Das Bild ist in der Zwischenablage.</translation>
    </message>
    <message>
        <source>Export</source>
        <extracomment>plot windows: title of the dialog that asks for a file</extracomment>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Picture (*.png)</source>
        <extracomment>plot windows: kinds of file</extracomment>
        <translation>Bild (*.png)</translation>
    </message>
    <message>
        <source>Vector picture (*.svg)</source>
        <extracomment>file dialog: kind of file; the part in brackets stays</extracomment>
        <translation>Vektorbild (*.svg)</translation>
    </message>
    <message>
        <source>Table (*.csv)</source>
        <extracomment>file dialog: kind of file; the part in brackets stays</extracomment>
        <translation>Tabelle (*.csv)</translation>
    </message>
    <message>
        <source>Exporting…</source>
        <extracomment>plot windows: said while an export is under way</extracomment>
        <translation>Export läuft …</translation>
    </message>
    <message>
        <source>The data changed meanwhile; export again.</source>
        <extracomment>plot windows: said when the data changed from under an export</extracomment>
        <translation>Die Daten haben sich inzwischen geändert; bitte erneut exportieren.</translation>
    </message>
    <message>
        <source>Exported to %1.</source>
        <extracomment>plot windows: said after an export; %1 is a file</extracomment>
        <translation>Exportiert nach %1.</translation>
    </message>
    <message>
        <source>Document (*.pdf)</source>
        <extracomment>file dialog: kind of file; the part in brackets stays</extracomment>
        <translation>Dokument (*.pdf)</translation>
    </message>
    <message>
        <source>The file&apos;s name must end in .png, .svg, .pdf or .csv.</source>
        <extracomment>plot windows: said when the chosen file&apos;s name says nothing about its kind</extracomment>
        <translation>Der Dateiname muss auf .png, .svg, .pdf oder .csv enden.</translation>
    </message>
</context>
<context>
    <name>plots</name>
    <message>
        <source>Back</source>
        <extracomment>plots: accessible name of the button with an arrow to the left</extracomment>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Back to what was in sight before (Alt+Left)</source>
        <extracomment>plots: tooltip of the button with an arrow to the left</extracomment>
        <translation>Zurück zu dem, was vorher zu sehen war (Alt+Links)</translation>
    </message>
    <message>
        <source>Forward</source>
        <extracomment>plots: accessible name of the button with an arrow to the right</extracomment>
        <translation>Vorwärts</translation>
    </message>
    <message>
        <source>Forward again (Alt+Right)</source>
        <extracomment>plots: tooltip of the button with an arrow to the right</extracomment>
        <translation>Wieder vorwärts (Alt+Rechts)</translation>
    </message>
</context>
<context>
    <name>preferences</name>
    <message>
        <source>Program</source>
        <extracomment>General preferences: title of a group</extracomment>
        <translation>Programm</translation>
    </message>
    <message>
        <source>&amp;Launch Tickervantage at login</source>
        <extracomment>General preferences: check box, and its tooltip</extracomment>
        <translation>Tickervantage bei der Anme&amp;ldung starten</translation>
    </message>
    <message>
        <source>Puts a desktop file into your autostart folder</source>
        <extracomment>General preferences: tooltip of the launch at login</extracomment>
        <translation>Legt eine Desktop-Datei in Ihren Autostart-Ordner</translation>
    </message>
    <message>
        <source>&amp;Adjust System Clock</source>
        <extracomment>General preferences: check box, and its tooltip</extracomment>
        <translation>&amp;Systemuhr nachstellen</translation>
    </message>
    <message>
        <source>Off: chronyd runs with the option -x and leaves the clock alone</source>
        <extracomment>General preferences: tooltip of “Adjust the system clock”</extracomment>
        <translation>Aus: chronyd läuft mit der Option -x und lässt die Uhr in Ruhe</translation>
    </message>
    <message>
        <source>Reset Warnin&amp;gs</source>
        <extracomment>General preferences: button, and its tooltip</extracomment>
        <translation>Warnun&amp;gen zurücksetzen</translation>
    </message>
    <message>
        <source>Every warning that you asked not to see again is shown again</source>
        <extracomment>General preferences: tooltip of the button that resets warnings</extracomment>
        <translation>Alle Warnungen, die Sie nicht wieder sehen wollten, werden wieder gezeigt</translation>
    </message>
    <message>
        <source>Choose…</source>
        <extracomment>General preferences: button that opens a file chooser</extracomment>
        <translation>Auswählen …</translation>
    </message>
    <message>
        <source>Choose %1</source>
        <extracomment>General preferences: name of that button, and its tooltip; %1 is what is chosen, such as &quot;chronyd&quot;</extracomment>
        <translation>%1 auswählen</translation>
    </message>
    <message>
        <source>chrony&apos;s Files</source>
        <extracomment>General preferences: title of a group</extracomment>
        <translation>Dateien von chrony</translation>
    </message>
    <message>
        <source>&amp;Configuration:</source>
        <extracomment>General preferences: labels of four paths, each with its tooltip</extracomment>
        <translation>&amp;Konfiguration:</translation>
    </message>
    <message>
        <source>The installed chrony.conf</source>
        <extracomment>General preferences: tooltip of the configuration&apos;s path</extracomment>
        <translation>Die installierte chrony.conf</translation>
    </message>
    <message>
        <source>chron&amp;yc:</source>
        <extracomment>General preferences: label of the path of chronyc</extracomment>
        <translation>chron&amp;yc:</translation>
    </message>
    <message>
        <source>The program that asks chronyd</source>
        <extracomment>General preferences: tooltip of the path of chronyc</extracomment>
        <translation>Das Programm, das chronyd befragt</translation>
    </message>
    <message>
        <source>chrony&amp;d:</source>
        <extracomment>General preferences: label of the path of chronyd</extracomment>
        <translation>chrony&amp;d:</translation>
    </message>
    <message>
        <source>The daemon that keeps the clock</source>
        <extracomment>General preferences: tooltip of the path of chronyd</extracomment>
        <translation>Der Daemon, der die Uhr in Gang hält</translation>
    </message>
    <message>
        <source>The program that sets the clock right after the machine wakes up</source>
        <extracomment>General preferences: tooltip of the path of chronywake</extracomment>
        <translation>Das Programm, das nach dem Aufwachen des Rechners die Uhr stellt</translation>
    </message>
    <message>
        <source>D&amp;etect</source>
        <extracomment>General preferences: button, and its tooltip</extracomment>
        <translation>&amp;Erkennen</translation>
    </message>
    <message>
        <source>Fill in the paths of the distribution&apos;s own chrony</source>
        <extracomment>General preferences: tooltip of the button Detect</extracomment>
        <translation>Die Pfade des chrony der Distribution eintragen</translation>
    </message>
    <message>
        <source>A mask and an address, such as 255.255.255.0/192.0.2.0; empty: all sources</source>
        <extracomment>General preferences: tooltip of “Ask only sources in this network”</extracomment>
        <translation>Eine Maske und eine Adresse, wie 255.255.255.0/192.0.2.0; leer: alle Quellen</translation>
    </message>
    <message>
        <source>all</source>
        <extracomment>General preferences: shown in the empty field of the sources that chronywake asks</extracomment>
        <translation>alle</translation>
    </message>
    <message>
        <source>&amp;Test</source>
        <extracomment>General preferences: button, runs chronywake once</extracomment>
        <translation>&amp;Testen</translation>
    </message>
    <message>
        <source>Testing chronywake</source>
        <extracomment>General preferences: name of the bar that moves while chronywake runs</extracomment>
        <translation>chronywake wird getestet</translation>
    </message>
    <message>
        <source>After Waking Up</source>
        <extracomment>General preferences: title of a group</extracomment>
        <translation>Nach dem Aufwachen</translation>
    </message>
    <message>
        <source>I&amp;nstall chronywake</source>
        <extracomment>General preferences: check box, and its tooltip</extracomment>
        <translation>chronywake i&amp;nstallieren</translation>
    </message>
    <message>
        <source>Install the program that sets the clock right after the machine wakes up</source>
        <extracomment>General preferences: tooltip of the box that installs chronywake</extracomment>
        <translation>Das Programm installieren, das nach dem Aufwachen des Rechners die Uhr stellt</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <extracomment>General preferences: button, and its tooltip</extracomment>
        <translation>Vorgaben wiederherstellen</translation>
    </message>
    <message>
        <source>Everything on this pane as it was at first, but for the launch at login</source>
        <extracomment>General preferences: tooltip of the button Restore Defaults</extracomment>
        <translation>Alles auf dieser Seite wie zu Anfang, außer dem Start bei der Anmeldung</translation>
    </message>
    <message>
        <source>chronywa&amp;ke:</source>
        <extracomment>General preferences: label of the path of chronywake</extracomment>
        <translation>&amp;chronywake:</translation>
    </message>
    <message>
        <source>A&amp;pply</source>
        <extracomment>General preferences: buttons of chronywake</extracomment>
        <translation>An&amp;wenden</translation>
    </message>
    <message>
        <source>Keep a &amp;history also while the window is closed</source>
        <extracomment>General preferences: check box; the history of the clock</extracomment>
        <translation>Auch bei geschlossenem Fenster eine &amp;Aufzeichnung führen</translation>
    </message>
    <message>
        <source>A small service of yours reads the clock every 10 seconds, from login to logout</source>
        <extracomment>General preferences: tooltip of the box that keeps a history</extracomment>
        <translation>Ein kleiner Dienst von Ihnen liest alle 10 Sekunden die Uhr, von der Anmeldung bis zur Abmeldung</translation>
    </message>
    <message>
        <source>Set the clock at once if it is off &amp;by (seconds):</source>
        <extracomment>General preferences: labels of chronywake&apos;s arguments, each with its tooltip</extracomment>
        <translation>Uhr sofort stellen, wenn sie falsch geht &amp;um (Sekunden):</translation>
    </message>
    <message>
        <source>What is off by less is corrected slowly, without a jump</source>
        <extracomment>General preferences: tooltip of chronywake&apos;s first field</extracomment>
        <translation>Kleinere Fehler werden langsam ausgeglichen, ohne Sprung</translation>
    </message>
    <message>
        <source>… &amp;in the first so many updates:</source>
        <extracomment>General preferences: label; in how many updates after waking the clock may be stepped</extracomment>
        <translation>… in den ersten so &amp;vielen Aktualisierungen:</translation>
    </message>
    <message>
        <source>Later updates never make the clock jump; −1: any update may</source>
        <extracomment>General preferences: tooltip of “… in the first so many updates”</extracomment>
        <translation>Spätere Aktualisierungen lassen die Uhr nie springen; −1: jede darf</translation>
    </message>
    <message>
        <source>G&amp;ood measurements wanted from each source:</source>
        <extracomment>General preferences: label; measurements wanted from each source after waking</extracomment>
        <translation>Gute &amp;Messungen, die von jeder Quelle gewünscht sind:</translation>
    </message>
    <message>
        <source>chronyd stops asking a source once it has so many</source>
        <extracomment>General preferences: tooltip of “Good measurements wanted from each source”</extracomment>
        <translation>chronyd fragt eine Quelle nicht weiter, sobald er so viele hat</translation>
    </message>
    <message>
        <source>&amp;Most requests sent to each source:</source>
        <extracomment>General preferences: label; measurements tried with each source after waking</extracomment>
        <translation>&amp;Höchstzahl der Anfragen an jede Quelle:</translation>
    </message>
    <message>
        <source>chronyd gives up on a source after so many, answered or not</source>
        <extracomment>General preferences: tooltip of “Most requests sent to each source”</extracomment>
        <translation>chronyd gibt eine Quelle nach so vielen auf, beantwortet oder nicht</translation>
    </message>
    <message>
        <source>Ask only sou&amp;rces in this network:</source>
        <extracomment>General preferences: label; the network whose sources are asked after waking</extracomment>
        <translation>Nur &amp;Quellen in diesem Netz fragen:</translation>
    </message>
</context>
<context>
    <name>sensor_inspector</name>
    <message>
        <source>Sensor</source>
        <extracomment>sensor inspector: heading of a column</extracomment>
        <translation>Sensor</translation>
    </message>
    <message>
        <source>The sensor</source>
        <extracomment>sensor inspector: tooltip of that heading</extracomment>
        <translation>Der Sensor</translation>
    </message>
    <message>
        <source>T (°C)</source>
        <extracomment>sensor inspector: heading of a column, a temperature</extracomment>
        <translation>T (°C)</translation>
    </message>
    <message>
        <source>Newest temperature, degrees Celsius</source>
        <extracomment>sensor inspector: tooltip of that heading</extracomment>
        <translation>Neueste Temperatur in Grad Celsius</translation>
    </message>
    <message>
        <source>f (ppm)</source>
        <extracomment>sensor inspector: heading of a column, a frequency</extracomment>
        <translation>f (ppm)</translation>
    </message>
    <message>
        <source>Newest frequency, parts per million</source>
        <extracomment>sensor inspector: tooltip of that heading</extracomment>
        <translation>Neueste Frequenz in Millionstel</translation>
    </message>
    <message>
        <source>How well the curve fits the points, from 0 to 1</source>
        <extracomment>sensor inspector: tooltip of the heading r, the correlation</extracomment>
        <translation>Wie gut die Kurve zu den Punkten passt, von 0 bis 1</translation>
    </message>
    <message>
        <source>The curve&apos;s constant term, ppm</source>
        <extracomment>sensor inspector: tooltip of the heading a</extracomment>
        <translation>Konstanter Term der Kurve in ppm</translation>
    </message>
    <message>
        <source>The curve&apos;s coefficient of T, ppm per degree</source>
        <extracomment>sensor inspector: tooltip of the heading b</extracomment>
        <translation>Koeffizient von T in ppm je Grad</translation>
    </message>
    <message>
        <source>The curve&apos;s coefficient of T squared, ppm per square degree</source>
        <extracomment>sensor inspector: tooltip of the heading c</extracomment>
        <translation>Koeffizient von T² in ppm je Quadratgrad</translation>
    </message>
    <message>
        <source>Standard deviation of the points from the curve, ppm</source>
        <extracomment>sensor inspector: tooltip of the heading e</extracomment>
        <translation>Standardabweichung der Punkte von der Kurve in ppm</translation>
    </message>
</context>
<context>
    <name>sentences</name>
    <message>
        <source></source>
        <comment>What the program says of its work, in alerts and in status lines. A placeholder stands for a path, a number, words of chrony or of the system, or another of these sentences; sentences that begin in lower case follow a colon.</comment>
        <translation></translation>
    </message>
</context>
<context>
    <name>servers</name>
    <message>
        <source>A server needs a name or an address.</source>
        <extracomment>server window: said below a field whose value is not valid</extracomment>
        <translation>Ein Server braucht einen Namen oder eine Adresse.</translation>
    </message>
    <message>
        <source>An IPv6 address has no place in the list&apos;s file; use a name.</source>
        <extracomment>server window: said below a field whose value is not valid</extracomment>
        <translation>Eine IPv6-Adresse geht hier nicht; nehmen Sie einen Namen.</translation>
    </message>
    <message>
        <source>A title needs a letter or two.</source>
        <extracomment>server window: said below a field whose value is not valid</extracomment>
        <translation>Ein Titel braucht mindestens ein paar Zeichen.</translation>
    </message>
    <message>
        <source>The list&apos;s file cannot hold a colon, so a title has none.</source>
        <extracomment>server window: said below a field whose value is not valid</extracomment>
        <translation>Die Datei der Liste kann keinen Doppelpunkt aufnehmen, daher hat ein Titel keinen.</translation>
    </message>
    <message>
        <source>Add or remove</source>
        <extracomment>server window: name of the two buttons that add and remove a server</extracomment>
        <translation>Hinzufügen oder entfernen</translation>
    </message>
    <message>
        <source>Add</source>
        <extracomment>server window: name of the button with the plus sign, and its tooltip</extracomment>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Add a server (Ctrl+N)</source>
        <extracomment>server window: tooltip of the button +</extracomment>
        <translation>Einen Server hinzufügen (Strg+N)</translation>
    </message>
    <message>
        <source>Remove</source>
        <extracomment>server window: name of the button with the minus sign, and its tooltip</extracomment>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove the selected server (Delete)</source>
        <extracomment>server window: tooltip of the button −</extracomment>
        <translation>Den ausgewählten Server entfernen (Entf)</translation>
    </message>
    <message>
        <source>Undo Remove</source>
        <extracomment>server window: button that brings back the server removed last</extracomment>
        <translation>Entfernen rückgängig</translation>
    </message>
    <message>
        <source>Bring back the server that was removed last (Ctrl+Z)</source>
        <extracomment>server window: tooltip of that button</extracomment>
        <translation>Den zuletzt entfernten Server zurückholen (Strg+Z)</translation>
    </message>
    <message>
        <source>Servers</source>
        <extracomment>server window: name of the list, and its tooltip</extracomment>
        <translation>Server</translation>
    </message>
    <message>
        <source>Double-click or F2 changes a title; drag, or Alt with Up and Down, moves</source>
        <extracomment>server window: tooltip of the list</extracomment>
        <translation>Doppelklick oder F2 ändert einen Titel; Ziehen oder Alt mit Auf und Ab verschiebt ihn</translation>
    </message>
    <message>
        <source>No servers yet. Add one with +, or import those of the installed configuration.</source>
        <extracomment>server window: shown in the list while it is empty</extracomment>
        <translation>Noch keine Server. Fügen Sie einen mit + hinzu, oder importieren Sie die der installierten Konfiguration.</translation>
    </message>
    <message>
        <source>Address</source>
        <extracomment>server window: name of the field with the server&apos;s address, and its tooltip</extracomment>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>The server&apos;s host name or IPv4 address</source>
        <extracomment>server window: tooltip of the server&apos;s address</extracomment>
        <translation>Hostname oder IPv4-Adresse des Servers</translation>
    </message>
    <message>
        <source>minpoll: the shortest time between two requests, as a power of 2 in seconds</source>
        <extracomment>server window: tooltip of “Shortest interval”</extracomment>
        <translation>minpoll: die kürzeste Zeit zwischen zwei Anfragen, als Zweierpotenz in Sekunden</translation>
    </message>
    <message>
        <source>maxpoll: the longest time between two requests, as a power of 2 in seconds</source>
        <extracomment>server window: tooltip of “Longest interval”</extracomment>
        <translation>maxpoll: die längste Zeit zwischen zwei Anfragen, als Zweierpotenz in Sekunden</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <extracomment>server window: labels of the fields</extracomment>
        <translation>A&amp;dresse:</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <extracomment>server window: button, adds the servers of the installed chrony.conf</extracomment>
        <translation>&amp;Importieren</translation>
    </message>
    <message>
        <source>Import</source>
        <extracomment>server window: name of the button that imports a configuration</extracomment>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Add the servers and pools of the installed configuration</source>
        <extracomment>server window: tooltip of that button</extracomment>
        <translation>Die Server und Pools der installierten Konfiguration hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Copy Lines</source>
        <extracomment>server window: button, the list goes to the clipboard as lines of chrony.conf</extracomment>
        <translation>&amp;Zeilen kopieren</translation>
    </message>
    <message>
        <source>Copy Lines</source>
        <extracomment>server window: name of the button that copies the list as lines</extracomment>
        <translation>Zeilen kopieren</translation>
    </message>
    <message>
        <source>Insert in &amp;Editor</source>
        <extracomment>server window: button, the list goes into the configuration that is being edited</extracomment>
        <translation>In &amp;Editor einfügen</translation>
    </message>
    <message>
        <source>Insert in Editor</source>
        <extracomment>server window: name of the button that inserts the list into the editor</extracomment>
        <translation>In Editor einfügen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>server window: button, opens chrony&apos;s manual</extracomment>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Help</source>
        <extracomment>server window: name of the button that opens a page on servers</extracomment>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>What chrony&apos;s manual says of the server directive</source>
        <extracomment>server window: tooltip of that button</extracomment>
        <translation>Was das Handbuch von chrony zur Direktive server sagt</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <extracomment>server window: button beside a failure to save; saves once more</extracomment>
        <translation>Erneut &amp;versuchen</translation>
    </message>
    <message>
        <source>Try Again</source>
        <extracomment>server window: button, tries to save again</extracomment>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Save the list once more</source>
        <extracomment>server window: tooltip of that button</extracomment>
        <translation>Die Liste noch einmal speichern</translation>
    </message>
    <message>
        <source>1/%1 s</source>
        <extracomment>server window: part of a second; %1 a whole number</extracomment>
        <translation>1/%1 s</translation>
    </message>
    <message>
        <source>%1 s</source>
        <extracomment>server window: %1 seconds</extracomment>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <extracomment>server window: %1 minutes; %1 hours</extracomment>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 h</source>
        <extracomment>server window: a time below a field; %1 is a number of hours</extracomment>
        <translation>%1 h</translation>
    </message>
    <message>
        <source>Too often for a server outside the local network; 6 (64 s) is the least.</source>
        <extracomment>server window: below the field with the smallest poll</extracomment>
        <translation>Zu oft für einen Server außerhalb des lokalen Netzes; mindestens 6 (64 s).</translation>
    </message>
    <message>
        <source>Left to chrony: %1 at least</source>
        <extracomment>server window: below the field with the smallest poll; %1 is a time</extracomment>
        <translation>chrony überlassen: mindestens %1</translation>
    </message>
    <message>
        <source>%1 at least</source>
        <extracomment>server window: below the field with the smallest poll; %1 is a time</extracomment>
        <translation>Mindestens %1</translation>
    </message>
    <message>
        <source>Left to chrony: %1 at most</source>
        <extracomment>server window: below the field with the largest poll; %1 is a time</extracomment>
        <translation>chrony überlassen: höchstens %1</translation>
    </message>
    <message>
        <source>%1 at most</source>
        <extracomment>server window: below the field with the largest poll; %1 is a time</extracomment>
        <translation>Höchstens %1</translation>
    </message>
    <message>
        <source>A name or an address has no blanks.</source>
        <extracomment>server window: said below a field whose value is not valid</extracomment>
        <translation>Ein Name oder eine Adresse enthält keine Leerzeichen.</translation>
    </message>
    <message>
        <source>pool: chrony takes several of the servers that the name stands for</source>
        <extracomment>server window: tooltip of the box for a pool</extracomment>
        <translation>pool: chrony nimmt mehrere der Server, für die der Name steht</translation>
    </message>
    <message>
        <source>Copy the list as lines of chrony&apos;s configuration</source>
        <extracomment>server window: tooltip of that button</extracomment>
        <translation>Die Liste als Zeilen von chronys Konfiguration kopieren</translation>
    </message>
    <message>
        <source>The longest interval is not a whole number.</source>
        <extracomment>server window: said below a field whose value is not valid</extracomment>
        <translation>Der längste Abstand ist keine ganze Zahl.</translation>
    </message>
    <message>
        <source>The shortest interval is not a whole number.</source>
        <extracomment>server window: said below a field whose value is not valid</extracomment>
        <translation>Der kürzeste Abstand ist keine ganze Zahl.</translation>
    </message>
    <message>
        <source>The longest interval is at most 16 (18 hours).</source>
        <extracomment>server window: said below a field whose value is not valid</extracomment>
        <translation>Der längste Abstand ist höchstens 16 (18 Stunden).</translation>
    </message>
    <message>
        <source>The shortest interval is at most 16 (18 hours).</source>
        <extracomment>server window: said below a field whose value is not valid</extracomment>
        <translation>Der kürzeste Abstand ist höchstens 16 (18 Stunden).</translation>
    </message>
    <message>
        <source>The shortest interval is longer than the longest.</source>
        <extracomment>server window: said below a field whose value is not valid</extracomment>
        <translation>Der kürzeste Abstand ist länger als der längste.</translation>
    </message>
    <message>
        <source>Shortest interval</source>
        <extracomment>server window: name of the field with chrony&apos;s minpoll, and its tooltip</extracomment>
        <translation>Kürzester Abstand</translation>
    </message>
    <message>
        <source>Longest interval</source>
        <extracomment>server window: name of the field with chrony&apos;s maxpoll, and its tooltip</extracomment>
        <translation>Längster Abstand</translation>
    </message>
    <message>
        <source>Ask a few times quickly at the &amp;start</source>
        <extracomment>server window: check box</extracomment>
        <translation>Am &amp;Anfang ein paar Mal schnell fragen</translation>
    </message>
    <message>
        <source>Ask a few times quickly at the start</source>
        <extracomment>server window: name of that check box, and its tooltip</extracomment>
        <translation>Am Anfang ein paar Mal schnell fragen</translation>
    </message>
    <message>
        <source>iburst: four requests within seconds set the clock sooner</source>
        <extracomment>server window: tooltip of the box for iburst</extracomment>
        <translation>iburst: Vier Anfragen binnen Sekunden stellen die Uhr früher</translation>
    </message>
    <message>
        <source>A pool of several ser&amp;vers</source>
        <extracomment>server window: check box</extracomment>
        <translation>Ei&amp;n Pool aus mehreren Servern</translation>
    </message>
    <message>
        <source>A pool of several servers</source>
        <extracomment>server window: name of that check box, and its tooltip</extracomment>
        <translation>Ein Pool aus mehreren Servern</translation>
    </message>
    <message>
        <source>Sho&amp;rtest interval:</source>
        <extracomment>server window: label of the field with minpoll</extracomment>
        <translation>&amp;Kürzester Abstand:</translation>
    </message>
    <message>
        <source>&amp;Longest interval:</source>
        <extracomment>server window: label of the field with maxpoll</extracomment>
        <translation>&amp;Längster Abstand:</translation>
    </message>
</context>
<context>
    <name>sources</name>
    <message>
        <source>← clock is behind</source>
        <extracomment>picture of where each source sees our clock, at its left edge</extracomment>
        <translation>← Uhr geht nach</translation>
    </message>
    <message>
        <source>ahead →</source>
        <extracomment>picture of where each source sees our clock, at its right edge</extracomment>
        <translation>geht vor →</translation>
    </message>
    <message>
        <source>Followed</source>
        <extracomment>table of sources: state of a source that chronyd follows before all others</extracomment>
        <translation>Führend</translation>
    </message>
    <message>
        <source>Used as well</source>
        <extracomment>table of sources: state of a source that is used together with the best one</extracomment>
        <translation>Mitbenutzt</translation>
    </message>
    <message>
        <source>Measured only</source>
        <extracomment>table of sources: state of a source with the option noselect</extracomment>
        <translation>Nur gemessen</translation>
    </message>
    <message>
        <source>Name not found</source>
        <extracomment>table of sources: state of a source whose name has no address</extracomment>
        <translation>Name unbekannt</translation>
    </message>
    <message>
        <source>No answer</source>
        <extracomment>table of sources: state of a source that never answered</extracomment>
        <translation>Keine Antwort</translation>
    </message>
    <message>
        <source>Has no time</source>
        <extracomment>table of sources: state of a source that says it is not synchronised</extracomment>
        <translation>Hat keine Zeit</translation>
    </message>
    <message>
        <source>Too few measurements</source>
        <extracomment>table of sources: state of a source</extracomment>
        <translation>Zu wenig Messungen</translation>
    </message>
    <message>
        <source>Silent</source>
        <extracomment>table of sources: state of a source that answered once, but not lately</extracomment>
        <translation>Verstummt</translation>
    </message>
    <message>
        <source>Too distant</source>
        <extracomment>table of sources: state of a source beyond maxdistance</extracomment>
        <translation>Zu weit weg</translation>
    </message>
    <message>
        <source>Too unsteady</source>
        <extracomment>table of sources: state of a source beyond maxjitter</extracomment>
        <translation>Zu unruhig</translation>
    </message>
    <message>
        <source>Waits for others</source>
        <extracomment>table of sources: state of a source</extracomment>
        <translation>Wartet auf andere</translation>
    </message>
    <message>
        <source>Wrong time</source>
        <extracomment>table of sources: state of a source that contradicts the majority</extracomment>
        <translation>Falsche Zeit</translation>
    </message>
    <message>
        <source>No majority</source>
        <extracomment>table of sources: state of a source where no majority tells who is right</extracomment>
        <translation>Keine Mehrheit</translation>
    </message>
    <message>
        <source>Too few sources</source>
        <extracomment>table of sources: state of a source that may be used once enough others can be</extracomment>
        <translation>Zu wenig Quellen</translation>
    </message>
    <message>
        <source>Another is preferred</source>
        <extracomment>table of sources: state of a source beside one with the option prefer</extracomment>
        <translation>Andere bevorzugt</translation>
    </message>
    <message>
        <source>Needs a measurement</source>
        <extracomment>table of sources: state of a source</extracomment>
        <translation>Messung fehlt noch</translation>
    </message>
    <message>
        <source>Not combined</source>
        <extracomment>table of sources: state of a source too far from the best one to be combined with it</extracomment>
        <translation>Nicht kombiniert</translation>
    </message>
    <message>
        <source>Outlier</source>
        <extracomment>table of sources: state of a source at the edge of those that agree</extracomment>
        <translation>Ausreißer</translation>
    </message>
    <message>
        <source>Higher stratum</source>
        <extracomment>table of sources: state of a source of a higher stratum than another</extracomment>
        <translation>Höheres Stratum</translation>
    </message>
    <message>
        <source>Out of date</source>
        <extracomment>table of sources: state of a source whose measurements are old</extracomment>
        <translation>Veraltet</translation>
    </message>
    <message>
        <source>Orphan</source>
        <extracomment>table of sources: state of a source whose stratum is that of this machine&apos;s own orphan mode</extracomment>
        <translation>Verwaist</translation>
    </message>
    <message>
        <source>Not trusted</source>
        <extracomment>table of sources: state of a source that contradicts those with the option trust</extracomment>
        <translation>Nicht vertraut</translation>
    </message>
    <message>
        <source>Not used</source>
        <extracomment>table of sources: state of a source that is not used, without the reports that would tell why</extracomment>
        <translation>Nicht benutzt</translation>
    </message>
    <message>
        <source>%1 s</source>
        <extracomment>table of sources: %1 is a number of seconds between two polls</extracomment>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>State</source>
        <extracomment>table of sources: heading of a column</extracomment>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Whether chronyd uses the source, and if not, why</source>
        <extracomment>table of sources: tooltip of that heading</extracomment>
        <translation>Ob chronyd die Quelle benutzt, und wenn nicht, warum</translation>
    </message>
    <message>
        <source>Name</source>
        <extracomment>table of sources: heading of a column</extracomment>
        <translation>Name</translation>
    </message>
    <message>
        <source>As the configuration has it</source>
        <extracomment>table of sources: tooltip of that heading</extracomment>
        <translation>Wie er in der Konfiguration steht</translation>
    </message>
    <message>
        <source>Address</source>
        <extracomment>table of sources: heading of a column</extracomment>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Its address, or the ID of a reference clock</source>
        <extracomment>table of sources: tooltip of that heading</extracomment>
        <translation>Ihre Adresse oder die Kennung einer Referenzuhr</translation>
    </message>
    <message>
        <source>Stratum</source>
        <extracomment>table of sources: heading of a narrow column</extracomment>
        <translation>Stratum</translation>
    </message>
    <message>
        <source>How many steps it is away from a reference clock</source>
        <extracomment>table of sources: tooltip of that heading</extracomment>
        <translation>Wie viele Schritte sie von einer Referenzuhr entfernt ist</translation>
    </message>
    <message>
        <source>Poll</source>
        <extracomment>table of sources: heading of a narrow column</extracomment>
        <translation>Abstand</translation>
    </message>
    <message>
        <source>The time between two measurements</source>
        <extracomment>table of sources: tooltip of that heading</extracomment>
        <translation>Die Zeit zwischen zwei Messungen</translation>
    </message>
    <message>
        <source>Reach</source>
        <extracomment>table of sources: heading of a column</extracomment>
        <translation>Erreicht</translation>
    </message>
    <message>
        <source>The last eight polls, the newest at the right: a full dot was answered</source>
        <extracomment>table of sources: tooltip of that heading</extracomment>
        <translation>Die letzten acht Anfragen, die neueste rechts: Ein voller Punkt wurde beantwortet</translation>
    </message>
    <message>
        <source>Offset</source>
        <extracomment>table of sources: heading of a column</extracomment>
        <translation>Versatz</translation>
    </message>
    <message>
        <source>How far our clock is ahead of the source, and how far that may be wrong</source>
        <extracomment>table of sources: tooltip of that heading</extracomment>
        <translation>Um wie viel unsere Uhr der Quelle vorausgeht, und um wie viel das falsch sein kann</translation>
    </message>
    <message>
        <source>Last heard</source>
        <extracomment>table of sources: heading of a column</extracomment>
        <translation>Zuletzt</translation>
    </message>
    <message>
        <source>How long ago its newest measurement was</source>
        <extracomment>table of sources: tooltip of that heading</extracomment>
        <translation>Wie lange ihre neueste Messung her ist</translation>
    </message>
    <message>
        <source>%1 of the last 8 answered</source>
        <extracomment>table of sources, for screen readers: %1 of the last eight polls were answered</extracomment>
        <translation>%1 der letzten 8 beantwortet</translation>
    </message>
    <message>
        <source>Intervals</source>
        <extracomment>main window: name of the picture beside the table of sources</extracomment>
        <translation>Intervalle</translation>
    </message>
    <message>
        <source>Where each source sees our clock: true time lies somewhere in its bar. Filled: used. Shaded: what those that agree have in common.</source>
        <extracomment>main window: tooltip of the picture beside the table of sources</extracomment>
        <translation>Wo jede Quelle unsere Uhr sieht: Die wahre Zeit liegt irgendwo in ihrem Balken. Gefüllt: benutzt. Schattiert: was die übereinstimmenden gemeinsam haben.</translation>
    </message>
    <message>
        <source>Explanation</source>
        <extracomment>main window: name of the text that explains a source</extracomment>
        <translation>Erklärung</translation>
    </message>
    <message>
        <source>Sources</source>
        <extracomment>main window: name of the table of sources</extracomment>
        <translation>Quellen</translation>
    </message>
    <message>
        <source>Some reasons are in reports that only an administrator may read.</source>
        <extracomment>main window: beside the button that brings the reports which only an administrator may read</extracomment>
        <translation>Manche Gründe stehen in Berichten, die nur ein Verwalter lesen darf.</translation>
    </message>
    <message>
        <source>Read the administrator&apos;s reports</source>
        <extracomment>main window: name of the button that brings the reports which only an administrator may read</extracomment>
        <translation>Die Berichte des Verwalters lesen</translation>
    </message>
    <message>
        <source>Read &amp;Them…</source>
        <extracomment>main window: button that brings the reports which only an administrator may read</extracomment>
        <translation>Diese l&amp;esen …</translation>
    </message>
</context>
<context>
    <name>spectrum</name>
    <message>
        <source>Series</source>
        <extracomment>spectrum window: name of the menu that chooses the series, and its tooltip</extracomment>
        <translation>Reihe</translation>
    </message>
    <message>
        <source>The series of the tracking log whose spectrum is shown</source>
        <extracomment>spectrum window: tooltip of the menu of series</extracomment>
        <translation>Die Reihe des Tracking-Protokolls, deren Spektrum gezeigt wird</translation>
    </message>
    <message>
        <source>Offset</source>
        <extracomment>spectrum window: the series of the tracking log</extracomment>
        <translation>Abweichung</translation>
    </message>
    <message>
        <source>Remaining correction</source>
        <extracomment>spectrum window: a series</extracomment>
        <translation>Restkorrektur</translation>
    </message>
    <message>
        <source>RMS offset</source>
        <extracomment>spectrum window: a series</extracomment>
        <translation>RMS-Abweichung</translation>
    </message>
    <message>
        <source>Sampling interval</source>
        <extracomment>spectrum window: name of the field with the seconds between two samples, and its tooltip</extracomment>
        <translation>Abtastintervall</translation>
    </message>
    <message>
        <source>Seconds between two samples; Return computes anew</source>
        <extracomment>spectrum window: tooltip of the interval</extracomment>
        <translation>Sekunden zwischen zwei Abtastwerten; die Eingabetaste rechnet neu</translation>
    </message>
    <message>
        <source>Analysed duration</source>
        <extracomment>spectrum window: name of the field with the seconds analysed, and its tooltip</extracomment>
        <translation>Untersuchte Dauer</translation>
    </message>
    <message>
        <source>Seconds analysed, up to the newest record; Return computes anew</source>
        <extracomment>spectrum window: tooltip of the duration</extracomment>
        <translation>Untersuchte Sekunden bis zum neuesten Eintrag; die Eingabetaste rechnet neu</translation>
    </message>
    <message>
        <source>&amp;Compute</source>
        <extracomment>spectrum window: button, computes the spectrum from the log as it is now</extracomment>
        <translation>&amp;Berechnen</translation>
    </message>
    <message>
        <source>Compute</source>
        <extracomment>spectrum window: name of the button that computes</extracomment>
        <translation>Berechnen</translation>
    </message>
    <message>
        <source>Compute the spectrum from the tracking log as it is now</source>
        <extracomment>spectrum window: tooltip of that button</extracomment>
        <translation>Das Spektrum aus dem jetzigen Tracking-Protokoll berechnen</translation>
    </message>
    <message>
        <source>E&amp;xport…</source>
        <extracomment>spectrum window: button, saves the chart as a picture or its numbers as a table</extracomment>
        <translation>E&amp;xportieren …</translation>
    </message>
    <message>
        <source>Export</source>
        <extracomment>spectrum window: name of the button that exports</extracomment>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Save the chart as a picture, or its numbers as CSV (Ctrl+S)</source>
        <extracomment>spectrum window: tooltip of that button</extracomment>
        <translation>Das Diagramm als Bild oder seine Zahlen als CSV speichern (Strg+S)</translation>
    </message>
    <message>
        <source>Spectrum</source>
        <extracomment>spectrum window: name of the chart, and its tooltip</extracomment>
        <translation>Spektrum</translation>
    </message>
    <message>
        <source>Reading</source>
        <extracomment>spectrum window: name of the line below the chart</extracomment>
        <translation>Ablesung</translation>
    </message>
    <message>
        <source>&amp;Series:</source>
        <extracomment>spectrum window: label of the series menu</extracomment>
        <translation>&amp;Reihe:</translation>
    </message>
    <message>
        <source>The interval must be more than 0 seconds.</source>
        <extracomment>spectrum window: reasons why no spectrum was computed</extracomment>
        <translation>Das Intervall muss länger als 0 Sekunden sein.</translation>
    </message>
    <message>
        <source>The duration must be at least half an interval.</source>
        <extracomment>spectrum window: reason why no spectrum was computed</extracomment>
        <translation>Die Dauer muss mindestens ein halbes Intervall betragen.</translation>
    </message>
    <message>
        <source>A spectrum has at most %1 samples: shorten the duration or lengthen the interval.</source>
        <extracomment>%1 a whole number</extracomment>
        <translation>Ein Spektrum hat höchstens %1 Abtastwerte: Verkürzen Sie die Dauer, oder verlängern Sie das Intervall.</translation>
    </message>
    <message>
        <source>The record of %1 has no value for “%2”.</source>
        <extracomment>%1 a time, %2 the series as the selector names it</extracomment>
        <translation>Der Eintrag von %1 hat keinen Wert für „%2“.</translation>
    </message>
    <message>
        <source>There is not enough memory for a spectrum of that many samples.</source>
        <extracomment>spectrum window: reason why no spectrum was computed</extracomment>
        <translation>Für ein Spektrum mit so vielen Abtastwerten reicht der Speicher nicht.</translation>
    </message>
    <message>
        <source>%1 (mirror image)</source>
        <extracomment>spectrum window: %1 a bar of the upper half as above</extracomment>
        <translation>%1 (Spiegelbild)</translation>
    </message>
    <message>
        <source>%1 of %2 samples are extrapolated beyond the records; a shorter interval avoids that.</source>
        <extracomment>spectrum window: %1 and %2 are whole numbers</extracomment>
        <translation>%1 von %2 Abtastwerten sind über die Einträge hinaus extrapoliert; ein kürzeres Intervall vermeidet das.</translation>
    </message>
    <message>
        <source>%1 of %2 samples are older than the records, and count as 0.</source>
        <extracomment>spectrum window: %1 and %2 are whole numbers</extracomment>
        <translation>%1 von %2 Abtastwerten sind älter als die Einträge und zählen als 0.</translation>
    </message>
    <message>
        <source>Spectrum: %1</source>
        <extracomment>exported spectrum: its title; %1 the series</extracomment>
        <translation>Spektrum: %1</translation>
    </message>
    <message>
        <source>%1 s up to %2, a sample every %3 s</source>
        <extracomment>exported spectrum: %1 a number of seconds, %2 a date with time and zone, %3 a number of seconds</extracomment>
        <translation>%1 s bis %2, alle %3 s ein Abtastwert</translation>
    </message>
    <message>
        <source>Shaded: mirror image of the left half</source>
        <extracomment>exported spectrum: what the shade is</extracomment>
        <translation>Schattiert: Spiegelbild der linken Hälfte</translation>
    </message>
    <message>
        <source>A sample &amp;every (s):</source>
        <extracomment>spectrum window: label of the field with the seconds between two samples</extracomment>
        <translation>Ein Wert all&amp;e (s):</translation>
    </message>
    <message>
        <source>Of the &amp;last (s):</source>
        <extracomment>spectrum window: label of the field with the seconds analysed, up to the newest record</extracomment>
        <translation>Aus den &amp;letzten (s):</translation>
    </message>
    <message>
        <source>Bar %1, the mean: height %2</source>
        <extracomment>spectrum window: the first bar is pointed at; %1 its number, %2 its height</extracomment>
        <translation>Balken %1, das Mittel: Höhe %2</translation>
    </message>
    <message>
        <source>Bar %1: repeats every %3 s (%2 Hz), height %4</source>
        <extracomment>spectrum window: the bar pointed at; %1 its number, %2 a frequency, %3 a time, %4 its height</extracomment>
        <translation>Balken %1: wiederholt sich alle %3 s (%2 Hz), Höhe %4</translation>
    </message>
    <message>
        <source>Across: frequency in Hz. Upwards: strength, that of the highest bar being 1</source>
        <extracomment>exported spectrum: what its axes are</extracomment>
        <translation>Waagerecht: Frequenz in Hz. Senkrecht: Stärke, die des höchsten Balkens ist 1</translation>
    </message>
</context>
<context>
    <name>status</name>
    <message>
        <source>State of chronyd</source>
        <extracomment>main window: name of the image beside the words for the daemon&apos;s state</extracomment>
        <translation>Zustand von chronyd</translation>
    </message>
    <message>
        <source>Synchronised</source>
        <extracomment>main window: state of the daemon</extracomment>
        <translation>Synchronisiert</translation>
    </message>
    <message>
        <source>Not synchronised</source>
        <extracomment>main window: state of the daemon; it runs but follows no source yet</extracomment>
        <translation>Nicht synchronisiert</translation>
    </message>
    <message>
        <source>Not available</source>
        <extracomment>main window: state of the daemon; it gave no usable answer</extracomment>
        <translation>Nicht verfügbar</translation>
    </message>
</context>
<context>
    <name>tables</name>
    <message>
        <source>&amp;Copy Values</source>
        <extracomment>tables: menu item, the chosen rows go to the clipboard</extracomment>
        <translation>&amp;Werte kopieren</translation>
    </message>
</context>
<context>
    <name>tickervantage::ConfigEditor</name>
    <message>
        <source>Checking…</source>
        <extracomment>configuration editor: said during a check</extracomment>
        <translation>Prüfung läuft …</translation>
    </message>
    <message>
        <source>The text changed during the check; check it again.</source>
        <extracomment>configuration editor: said when a check came too late</extracomment>
        <translation>Der Text wurde während der Prüfung geändert; bitte erneut prüfen.</translation>
    </message>
    <message>
        <source>Save Configuration</source>
        <extracomment>title of the dialog that saves a configuration</extracomment>
        <translation>Konfiguration speichern</translation>
    </message>
    <message>
        <source>The configuration was not saved</source>
        <extracomment>alert: message above the reason</extracomment>
        <translation>Die Konfiguration wurde nicht gespeichert</translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <extracomment>configuration editor: said after saving; %1 a path</extracomment>
        <translation>%1 gespeichert.</translation>
    </message>
    <message>
        <source>The configuration was not installed</source>
        <extracomment>alert: message, and why
----------
alert: message above the reason</extracomment>
        <translation>Die Konfiguration wurde nicht installiert</translation>
    </message>
    <message>
        <source>Installing needs the root helper, which this program was started without.</source>
        <extracomment>alert: informative text</extracomment>
        <translation>Zum Installieren braucht es den Root-Helfer, ohne den dieses Programm gestartet wurde.</translation>
    </message>
    <message>
        <source>The text changed meanwhile, so it was not installed; check it again.</source>
        <extracomment>configuration editor: said when the text was edited while it was saved for an installation</extracomment>
        <translation>Der Text wurde inzwischen geändert und daher nicht installiert; bitte erneut prüfen.</translation>
    </message>
    <message>
        <source>Installing…</source>
        <extracomment>configuration editor: said during the installation</extracomment>
        <translation>Installation läuft …</translation>
    </message>
    <message>
        <source>Installed Chrony Configuration</source>
        <extracomment>Installed Configuration</extracomment>
        <translation>chrony-Konfiguration installiert</translation>
    </message>
    <message>
        <source>Installed.</source>
        <extracomment>configuration editor: said after the installation</extracomment>
        <translation>Installiert.</translation>
    </message>
    <message>
        <source>Not installed.</source>
        <extracomment>configuration editor: said after an installation that failed</extracomment>
        <translation>Nicht installiert.</translation>
    </message>
    <message>
        <source>Looking…</source>
        <extracomment>configuration editor: menu of included files, while they are looked for</extracomment>
        <translation>Es wird gesucht …</translation>
    </message>
    <message>
        <source>%1 (read-only)</source>
        <translation>%1 (nur lesbar)</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>%1 is a part of a configuration; installing it would put it in the place of the whole, %2. A part belongs where it lies: save it there, or save a copy and put it there as an administrator:

sudo install -m 644 COPY %1

Then restart chronyd.</source>
        <extracomment>alert: %1 is the file that was to be installed, %2 the installed configuration</extracomment>
        <translation>%1 ist Teil einer Konfiguration; die Installation würde ihn an die Stelle des Ganzen setzen, %2. Ein Teil gehört dorthin, wo er liegt: Speichern Sie ihn dort, oder speichern Sie eine Kopie, und legen Sie sie als Administrator dorthin:

sudo install -m 644 KOPIE %1

Starten Sie dann chronyd neu.</translation>
    </message>
    <message>
        <source></source>
        <comment>configuration editor: its menus, sheets and the line below the text.</comment>
        <translation></translation>
    </message>
    <message>
        <source>The configuration could not be read</source>
        <extracomment>alert: message above the reason</extracomment>
        <translation>Die Konfiguration konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <extracomment>configuration editor: said below the text, of the line that is underlined; %1 its number, %2 what chronyd says</extracomment>
        <translation>Zeile %1: %2</translation>
    </message>
</context>
<context>
    <name>tickervantage::FreqTempWindow</name>
    <message>
        <source>Frequency and Temperature</source>
        <extracomment>frequency and temperature window: title</extracomment>
        <translation>Frequenz und Temperatur</translation>
    </message>
    <message>
        <source>Sensors</source>
        <extracomment>frequency and temperature window: title of the menu of sensors</extracomment>
        <translation>Sensoren</translation>
    </message>
    <message>
        <source>No Sensor</source>
        <extracomment>frequency and temperature window: menu item, hides the points of all sensors</extracomment>
        <translation>Kein Sensor</translation>
    </message>
    <message>
        <source>Delete all points of all sensors?</source>
        <extracomment>frequency and temperature window: asked before the points are deleted</extracomment>
        <translation>Alle Punkte aller Sensoren löschen?</translation>
    </message>
    <message>
        <source>They are deleted from the saved map too. Export them first if you may need them.</source>
        <extracomment>frequency and temperature window: second sentence of that question</extracomment>
        <translation>Sie werden auch aus der gespeicherten Datei gelöscht. Exportieren Sie sie vorher, falls Sie sie noch brauchen.</translation>
    </message>
    <message>
        <source>Delete Points</source>
        <extracomment>frequency and temperature window: button that deletes the points</extracomment>
        <translation>Punkte löschen</translation>
    </message>
</context>
<context>
    <name>tickervantage::HelpContents</name>
    <message>
        <source>Search all pages</source>
        <extracomment>help window: accessible name and placeholder of the field that searches every page</extracomment>
        <translation>Alle Seiten durchsuchen</translation>
    </message>
    <message>
        <source>Passages found</source>
        <extracomment>help window: accessible name of the list of what a search found</extracomment>
        <translation>Fundstellen</translation>
    </message>
    <message>
        <source>Pages</source>
        <extracomment>help window: accessible name of the list of pages</extracomment>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>No page has “%1”.</source>
        <extracomment>help window: answer of a search; %1 what was searched for</extracomment>
        <translation>Auf keiner Seite steht „%1“.</translation>
    </message>
    <message numerus="yes">
        <source>%n passage(s)</source>
        <extracomment>help window: answer of a search; %n passages were found</extracomment>
        <translation>
            <numerusform>%n Fundstelle</numerusform>
            <numerusform>%n Fundstellen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tickervantage::HelpFindBar</name>
    <message>
        <source>Find in this page</source>
        <extracomment>help window, bar that finds text: accessible name and placeholder of the field</extracomment>
        <translation>Auf dieser Seite suchen</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <extracomment>help window, bar that finds text: buttons</extracomment>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <extracomment>help find bar: button, the next place</extracomment>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <extracomment>help find bar: button, closes the bar</extracomment>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Not in this page</source>
        <extracomment>help window, bar that finds text: nothing was found</extracomment>
        <translation>Nicht auf dieser Seite</translation>
    </message>
</context>
<context>
    <name>tickervantage::HelpPageView</name>
    <message>
        <source>Help page</source>
        <extracomment>help window: name of the page for screen readers</extracomment>
        <translation>Hilfeseite</translation>
    </message>
    <message>
        <source>The manual page %1 is not installed on this machine. Debian&apos;s package chrony brings it, unless the system was set up to leave manual pages out.</source>
        <extracomment>help window: shown in place of a manual page; %1 its name</extracomment>
        <translation>Die Handbuchseite %1 ist auf diesem Rechner nicht installiert. Debians Paket chrony bringt sie mit, sofern das System nicht so eingerichtet ist, dass es Handbuchseiten weglässt.</translation>
    </message>
    <message>
        <source>Manual pages are shown with mandoc, which is not installed on this machine. Debian&apos;s package mandoc brings it.</source>
        <extracomment>help window: shown in place of a manual page; mandoc is a program and a package</extracomment>
        <translation>Handbuchseiten werden mit mandoc gezeigt, das auf diesem Rechner nicht installiert ist. Debians Paket mandoc bringt es mit.</translation>
    </message>
    <message>
        <source>It can be read at %1.</source>
        <extracomment>help window: shown in place of a manual page; %1 a link</extracomment>
        <translation>Sie ist unter %1 zu lesen.</translation>
    </message>
</context>
<context>
    <name>tickervantage::HelpViewer</name>
    <message>
        <source>Help</source>
        <extracomment>help window: title</extracomment>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Tools</source>
        <extracomment>help window: name of the tool bar</extracomment>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Back</source>
        <extracomment>help window: buttons of the tool bar</extracomment>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Forward</source>
        <extracomment>help window: tool, the page that was left with Back</extracomment>
        <translation>Vor</translation>
    </message>
    <message>
        <source>Find…</source>
        <extracomment>help window: tool, opens the find bar</extracomment>
        <translation>Suchen …</translation>
    </message>
    <message>
        <source>Search All…</source>
        <extracomment>help window: tool, goes to the field that searches all pages</extracomment>
        <translation>Alle durchsuchen …</translation>
    </message>
    <message>
        <source>Smaller</source>
        <extracomment>help window: tool, smaller letters</extracomment>
        <translation>Kleiner</translation>
    </message>
    <message>
        <source>Larger</source>
        <extracomment>help window: tool, larger letters</extracomment>
        <translation>Größer</translation>
    </message>
    <message>
        <source>Help: %1</source>
        <extracomment>help window: its title with a page; %1 the page&apos;s title</extracomment>
        <translation>Hilfe: %1</translation>
    </message>
</context>
<context>
    <name>tickervantage::HistoryWindow</name>
    <message>
        <source>At %1</source>
        <extracomment>history window: heading of the legend; %1 is a time of day</extracomment>
        <translation>Um %1</translation>
    </message>
    <message>
        <source>Time</source>
        <extracomment>history window: row of the table of cursors</extracomment>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>A click in the plot puts cursor A there, with Shift held cursor B.</source>
        <extracomment>history window: in the table of cursors while there are none</extracomment>
        <translation>Ein Klick ins Bild setzt dort Marke A, mit gehaltener Umschalttaste Marke B.</translation>
    </message>
    <message>
        <source>Events (%1)</source>
        <extracomment>history window: a tab with the number of events in sight</extracomment>
        <translation>Ereignisse (%1)</translation>
    </message>
    <message>
        <source></source>
        <comment>The window that shows what happened to the clock: its buttons, and the titles of its dialogs.</comment>
        <translation></translation>
    </message>
    <message>
        <source>History of the Clock</source>
        <extracomment>history window: title</extracomment>
        <translation>Verlauf der Uhr</translation>
    </message>
    <message>
        <source>Adding up…</source>
        <extracomment>history window: said while the logs are read for evidence</extracomment>
        <translation>Wird zusammengezählt…</translation>
    </message>
    <message>
        <source>Within the limit for %1, outside for %2, without evidence for %3. Written to %4.</source>
        <extracomment>history window: said after evidence was written; %1 to %3 are spans of time, %4 a file</extracomment>
        <translation>Innerhalb der Grenze: %1, außerhalb: %2, ohne Nachweis: %3. Geschrieben nach %4.</translation>
    </message>
    <message>
        <source>Open Log</source>
        <translation>Protokoll öffnen</translation>
    </message>
    <message>
        <source>Reading…</source>
        <extracomment>history window: said while logs and the store are read</extracomment>
        <translation>Wird gelesen…</translation>
    </message>
    <message>
        <source>%1 holds no records.</source>
        <extracomment>history window: said when a log that was to be compared has nothing; %1 is a file</extracomment>
        <translation>%1 enthält keine Aufzeichnungen.</translation>
    </message>
    <message>
        <source>A few very large values rule this number: the median and the percentiles tell what the others are like.</source>
        <extracomment>history window: tooltip of mean, standard deviation and RMS where they say little</extracomment>
        <translation>Wenige sehr große Werte bestimmen diese Zahl: Wie die übrigen sind, sagen Median und Perzentile.</translation>
    </message>
    <message>
        <source>Compare With the Logs of Another Machine</source>
        <extracomment>history window: titles of dialogs</extracomment>
        <translation>Mit den Protokollen eines anderen Rechners vergleichen</translation>
    </message>
    <message>
        <source>Open Folder of Logs</source>
        <translation>Ordner mit Protokollen öffnen</translation>
    </message>
    <message>
        <source>A click in the plot, or on an event, puts cursor A there: what is in sight before it is compared with what came after.</source>
        <extracomment>history window: in the table &quot;Before and after&quot; while there is no cursor A in sight</extracomment>
        <translation>Ein Klick ins Bild oder auf ein Ereignis setzt Marke A dorthin: Das Sichtbare davor wird mit dem danach verglichen.</translation>
    </message>
</context>
<context>
    <name>tickervantage::HostsDialog</name>
    <message>
        <source></source>
        <comment>the window with the other machines whose clocks the main window can show.</comment>
        <translation></translation>
    </message>
    <message>
        <source>Other Machines</source>
        <extracomment>other machines: title of the window</extracomment>
        <translation>Andere Rechner</translation>
    </message>
    <message>
        <source>The main window can show the clocks of other machines, as their chronyd tells it to everybody. There, chrony.conf needs the directives bindcmdaddress and cmdallow, with this machine&apos;s address; UDP port 323 has to be open between the two.</source>
        <extracomment>other machines: what the window is for</extracomment>
        <translation>Das Hauptfenster kann die Uhren anderer Rechner zeigen, so wie deren chronyd es jedem sagt. Dort braucht chrony.conf die Anweisungen bindcmdaddress und cmdallow, mit der Adresse dieses Rechners; der UDP-Port 323 muss zwischen beiden offen sein.</translation>
    </message>
    <message>
        <source>&amp;Machines:</source>
        <extracomment>other machines: label of the list</extracomment>
        <translation>&amp;Rechner:</translation>
    </message>
    <message>
        <source>Machines</source>
        <extracomment>other machines: name of the list</extracomment>
        <translation>Rechner</translation>
    </message>
    <message>
        <source>They stand in the menu Daemon; a double click shows the clock of one</source>
        <extracomment>other machines: tooltip of the list</extracomment>
        <translation>Sie stehen im Menü „Daemon“; ein Doppelklick zeigt die Uhr des Rechners</translation>
    </message>
    <message>
        <source>&amp;Name or address:</source>
        <extracomment>other machines: label of the field</extracomment>
        <translation>&amp;Name oder Adresse:</translation>
    </message>
    <message>
        <source>Name or address</source>
        <extracomment>other machines: name of the field</extracomment>
        <translation>Name oder Adresse</translation>
    </message>
    <message>
        <source>Such as time.example.org, 192.0.2.1 or 2001:db8::1; also the path of a chronyd&apos;s socket</source>
        <extracomment>other machines: tooltip of the field</extracomment>
        <translation>Etwa time.example.org, 192.0.2.1 oder 2001:db8::1; auch der Pfad zum Socket eines chronyd</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <extracomment>other machines: button</extracomment>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <extracomment>other machines: button</extracomment>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>&amp;Show Its Clock</source>
        <extracomment>other machines: button</extracomment>
        <translation>Seine &amp;Uhr zeigen</translation>
    </message>
    <message>
        <source>Show its clock</source>
        <translation>Seine Uhr zeigen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <extracomment>other machines: button</extracomment>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>“%1” is neither a host name nor an address.</source>
        <extracomment>other machines: %1 was typed as a name or an address</extracomment>
        <translation>„%1“ ist weder ein Rechnername noch eine Adresse.</translation>
    </message>
</context>
<context>
    <name>tickervantage::KeptConfigurationsWindow</name>
    <message>
        <source>Former Configurations</source>
        <extracomment>former configurations: title of the window</extracomment>
        <translation>Frühere Konfigurationen</translation>
    </message>
    <message>
        <source>Configurations</source>
        <extracomment>former configurations: name of the list</extracomment>
        <translation>Konfigurationen</translation>
    </message>
    <message>
        <source>The configurations that were installed last, the newest first</source>
        <extracomment>former configurations: tooltip of the list</extracomment>
        <translation>Die zuletzt installierten Konfigurationen, die neueste zuerst</translation>
    </message>
    <message>
        <source>Number</source>
        <extracomment>former configurations: titles of the columns</extracomment>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>What happened</source>
        <translation>Was geschah</translation>
    </message>
    <message>
        <source>&amp;Bring Back…</source>
        <extracomment>former configurations: button</extracomment>
        <translation>&amp;Zurückholen …</translation>
    </message>
    <message>
        <source>Bring back</source>
        <translation>Zurückholen</translation>
    </message>
    <message>
        <source>Install this configuration again and restart chronyd</source>
        <extracomment>former configurations: tooltip of the button</extracomment>
        <translation>Diese Konfiguration wieder installieren und chronyd neu starten</translation>
    </message>
    <message>
        <source>Close</source>
        <extracomment>former configurations: button</extracomment>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>%1 (in use)</source>
        <extracomment>former configurations: %1 is what happened to the configuration that chronyd uses now</extracomment>
        <translation>%1 (in Gebrauch)</translation>
    </message>
    <message>
        <source>No configuration has been kept yet: the first one is when you install one.</source>
        <extracomment>former configurations: said where nothing was kept yet</extracomment>
        <translation>Noch wurde keine Konfiguration aufbewahrt: Das geschieht, wenn Sie zum ersten Mal eine installieren.</translation>
    </message>
    <message>
        <source>This is what is installed.</source>
        <extracomment>former configurations: above the lines that differ; the same where there are none</extracomment>
        <translation>Das ist, was installiert ist.</translation>
    </message>
    <message>
        <source>What would c&amp;hange:</source>
        <translation>Was sich ä&amp;ndern würde:</translation>
    </message>
    <message>
        <source>It is back, and chronyd runs with it.</source>
        <extracomment>former configurations: said when one was brought back</extracomment>
        <translation>Sie ist wieder da, und chronyd läuft mit ihr.</translation>
    </message>
    <message>
        <source></source>
        <comment>former configurations: the window that lists them and brings one back.</comment>
        <translation></translation>
    </message>
</context>
<context>
    <name>tickervantage::LaboratoryWindow</name>
    <message>
        <source></source>
        <comment>The window that studies how steady the clock is: its controls, and the titles of its dialogs.</comment>
        <translation></translation>
    </message>
    <message>
        <source>Clock Laboratory</source>
        <extracomment>laboratory: title</extracomment>
        <translation>Uhrenlabor</translation>
    </message>
    <message>
        <source>Pages</source>
        <extracomment>laboratory: name of the tabs</extracomment>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>&amp;Stability</source>
        <extracomment>laboratory: titles of pages</extracomment>
        <translation>&amp;Stabilität</translation>
    </message>
    <message>
        <source>&amp;Holdover</source>
        <extracomment>laboratory: title of a page</extracomment>
        <translation>Frei&amp;lauf</translation>
    </message>
    <message>
        <source>&amp;Compensation</source>
        <extracomment>laboratory: title of a page</extracomment>
        <translation>&amp;Kompensation</translation>
    </message>
    <message>
        <source>&amp;Periodogram</source>
        <extracomment>laboratory: title of a page</extracomment>
        <translation>&amp;Periodogramm</translation>
    </message>
    <message>
        <source>What is used</source>
        <extracomment>laboratory: name of the line that says what is used</extracomment>
        <translation>Was benutzt wird</translation>
    </message>
    <message>
        <source>Source</source>
        <extracomment>laboratory: name of a menu, and its tooltip</extracomment>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Whose past is looked at</source>
        <translation>Wessen Vergangenheit betrachtet wird</translation>
    </message>
    <message>
        <source>Logs</source>
        <extracomment>laboratory: button with a menu, and its tooltip</extracomment>
        <translation>Protokolle</translation>
    </message>
    <message>
        <source>Open another log</source>
        <translation>Ein anderes Protokoll öffnen</translation>
    </message>
    <message>
        <source>&amp;Logs</source>
        <extracomment>laboratory: button with a menu</extracomment>
        <translation>P&amp;rotokolle</translation>
    </message>
    <message>
        <source>Export</source>
        <extracomment>laboratory: button with a menu, and its tooltip</extracomment>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Save or copy what this page shows</source>
        <translation>Speichert oder kopiert, was diese Seite zeigt</translation>
    </message>
    <message>
        <source>&amp;Export</source>
        <extracomment>laboratory: button with a menu</extracomment>
        <translation>&amp;Exportieren</translation>
    </message>
    <message>
        <source>&amp;Open Log…</source>
        <extracomment>laboratory: menu item</extracomment>
        <translation>Protokoll ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>Open &amp;Folder of Logs…</source>
        <extracomment>laboratory: menu item</extracomment>
        <translation>&amp;Ordner mit Protokollen öffnen…</translation>
    </message>
    <message>
        <source>Turn On &amp;Logs…</source>
        <extracomment>laboratory: menu item, has chrony write the logs that this window needs</extracomment>
        <translation>Protokolle &amp;einschalten…</translation>
    </message>
    <message>
        <source>Open Folder of Logs</source>
        <extracomment>laboratory: titles of dialogs</extracomment>
        <translation>Ordner mit Protokollen öffnen</translation>
    </message>
    <message>
        <source>Open Log</source>
        <translation>Protokoll öffnen</translation>
    </message>
    <message>
        <source>The demonstration&apos;s tracking log</source>
        <extracomment>laboratory: entry of the menu of sources</extracomment>
        <translation>Das Tracking-Protokoll der Vorführung</translation>
    </message>
    <message>
        <source>chrony&apos;s log, %1</source>
        <extracomment>laboratory: entry of the menu of sources; %1 is a file or folder</extracomment>
        <translation>chronys Protokoll, %1</translation>
    </message>
    <message>
        <source>Readings of this program</source>
        <extracomment>laboratory: entry of the menu of sources</extracomment>
        <translation>Ablesungen dieses Programms</translation>
    </message>
    <message>
        <source>Reading…</source>
        <extracomment>laboratory: said while a log is read</extracomment>
        <translation>Liest…</translation>
    </message>
    <message>
        <source>Used are the whole readings of the last week; older ones are thinned to minutes and hours, which lose the single offsets.</source>
        <extracomment>laboratory: below the pages, where readings are used and no log</extracomment>
        <translation>Benutzt werden die vollständigen Ablesungen der letzten Woche; ältere sind auf Minuten und Stunden ausgedünnt, wobei die einzelnen Abweichungen verloren gehen.</translation>
    </message>
    <message>
        <source>This program keeps a reading every few seconds: leave its main window open for a while, or choose “Turn On Logs…” to have chrony write a tracking log.</source>
        <extracomment>laboratory: what to do while there are no readings yet</extracomment>
        <translation>Dieses Programm hebt alle paar Sekunden eine Ablesung auf: Lassen Sie das Hauptfenster eine Weile offen, oder lassen Sie chrony mit „Protokolle einschalten…“ ein Tracking-Protokoll schreiben.</translation>
    </message>
    <message>
        <source>Choose “Turn On Logs…” to have chrony write one, or “Open Log…” for one from elsewhere.</source>
        <extracomment>laboratory: what to do where a log cannot be read</extracomment>
        <translation>Mit „Protokolle einschalten…“ schreibt chrony eines; „Protokoll öffnen…“ öffnet eines von anderswo.</translation>
    </message>
    <message>
        <source>Show all</source>
        <extracomment>laboratory: button, and its tooltip</extracomment>
        <translation>Alles zeigen</translation>
    </message>
    <message>
        <source>All of the chart (Ctrl+0, or a double click)</source>
        <translation>Das ganze Bild (Strg+0 oder ein Doppelklick)</translation>
    </message>
    <message>
        <source>Show All</source>
        <extracomment>laboratory: button</extracomment>
        <translation>Alles zeigen</translation>
    </message>
</context>
<context>
    <name>tickervantage::Preferences</name>
    <message>
        <source>Preferences</source>
        <extracomment>preferences window: title</extracomment>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Panes</source>
        <extracomment>preferences window: name of its panes</extracomment>
        <translation>Seiten</translation>
    </message>
</context>
<context>
    <name>tickervantage::PreferencesAdvancedPane</name>
    <message>
        <source>Offer the &amp;frequency and temperature window</source>
        <extracomment>Advanced preferences: check boxes, each with its explanation</extracomment>
        <translation>Fenster für &amp;Frequenz und Temperatur anbieten</translation>
    </message>
    <message>
        <source>How the clock&apos;s frequency follows the temperature of this machine&apos;s sensors.</source>
        <extracomment>Advanced preferences: explanation of the frequency and temperature window</extracomment>
        <translation>Wie die Frequenz der Uhr der Temperatur der Sensoren dieses Rechners folgt.</translation>
    </message>
    <message>
        <source>Offer the &amp;spectrum window</source>
        <extracomment>Advanced preferences: check box</extracomment>
        <translation>Fenster für das &amp;Spektrum anbieten</translation>
    </message>
    <message>
        <source>The spectrum of a tracking log: which periods its fluctuations have.</source>
        <extracomment>Advanced preferences: explanation of the spectrum window</extracomment>
        <translation>Das Spektrum eines Tracking-Protokolls: welche Perioden seine Schwankungen haben.</translation>
    </message>
    <message>
        <source>&amp;Restart the GPS daemon together with chronyd</source>
        <extracomment>Advanced preferences: check box</extracomment>
        <translation>Den &amp;GPS-Daemon zusammen mit chronyd neu starten</translation>
    </message>
    <message>
        <source>For a reference clock that gpsd feeds: it finds chronyd again only when it starts.</source>
        <extracomment>Advanced preferences: explanation of the restart of the GPS daemon</extracomment>
        <translation>Für eine Referenzuhr an gpsd: Er findet chronyd nur beim Start wieder.</translation>
    </message>
    <message>
        <source>Advanced</source>
        <extracomment>preferences: name of a pane</extracomment>
        <translation>Erweitert</translation>
    </message>
</context>
<context>
    <name>tickervantage::PreferencesGeneralPane</name>
    <message>
        <source>General</source>
        <extracomment>preferences: name of a pane</extracomment>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>%1: a number from %2 to %3.</source>
        <extracomment>General preferences: %1 a field&apos;s name, %2 and %3 numbers</extracomment>
        <translation>%1: eine Zahl von %2 bis %3.</translation>
    </message>
    <message>
        <source>A path starts with a slash.</source>
        <extracomment>General preferences: said below a path</extracomment>
        <translation>Ein Pfad beginnt mit einem Schrägstrich.</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <extracomment>General preferences: said below a path</extracomment>
        <translation>Diese Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>This is a folder.</source>
        <extracomment>General preferences: said below a path</extracomment>
        <translation>Das ist ein Ordner.</translation>
    </message>
    <message>
        <source>This is not a program that you may run.</source>
        <extracomment>General preferences: said below a path</extracomment>
        <translation>Das ist kein Programm, das Sie ausführen dürfen.</translation>
    </message>
    <message>
        <source>Choose</source>
        <extracomment>General preferences: button of the file chooser</extracomment>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>This machine has no chrony of its distribution.</source>
        <extracomment>General preferences: said when the button Detect found nothing</extracomment>
        <translation>Dieser Rechner hat kein chrony seiner Distribution.</translation>
    </message>
    <message>
        <source>The paths of the distribution&apos;s chrony are filled in.</source>
        <extracomment>General preferences: said when the button Detect filled in paths</extracomment>
        <translation>Die Pfade des chrony der Distribution sind eingetragen.</translation>
    </message>
    <message>
        <source>Warning</source>
        <extracomment>alert before the daemon is told to leave the clock alone: title</extracomment>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>When option Adjust System Clock is disabled, chronyd will no longer discipline the system clock to match NTP time. However, any clients connecting to this system will continue to be served with NTP time.

For further explanation see the documentation of the chronyd -x option.</source>
        <extracomment>alert before the daemon is told to leave the clock alone</extracomment>
        <translation>Wenn die Option „Systemuhr nachstellen“ ausgeschaltet ist, gleicht chronyd die Systemuhr nicht mehr an die NTP-Zeit an. Clients, die sich mit diesem System verbinden, erhalten aber weiterhin die NTP-Zeit.

Näheres steht in der Dokumentation der Option -x von chronyd.</translation>
    </message>
    <message>
        <source>Continue</source>
        <extracomment>buttons of that alert</extracomment>
        <translation>Fortfahren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <extracomment>button of the alert before the daemon is told to leave the clock alone</extracomment>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Do not show this warning again</source>
        <extracomment>check box of an alert</extracomment>
        <translation>Diese Warnung nicht wieder anzeigen</translation>
    </message>
    <message>
        <source>This version cannot do it: it has no root helper</source>
        <extracomment>General preferences: tooltip of a button that needs the root helper</extracomment>
        <translation>Diese Version kann das nicht: Sie hat keinen Root-Helfer</translation>
    </message>
    <message>
        <source>Install chronywake&apos;s job with these arguments, or remove it</source>
        <extracomment>General preferences: tooltip of the button that saves the arguments of chronywake</extracomment>
        <translation>chronywake mit diesen Argumenten einrichten oder entfernen</translation>
    </message>
    <message>
        <source>Run chronywake once and see what it answers</source>
        <extracomment>General preferences: tooltip of the button that runs chronywake</extracomment>
        <translation>chronywake einmal ausführen und sehen, was es antwortet</translation>
    </message>
    <message>
        <source>chronywake</source>
        <extracomment>alert after a test of chronywake: title</extracomment>
        <translation>chronywake</translation>
    </message>
    <message>
        <source>chronywake works: chronyd has set the clock right.</source>
        <extracomment>alert after a test of chronywake</extracomment>
        <translation>chronywake arbeitet: chronyd hat die Uhr gestellt.</translation>
    </message>
    <message>
        <source>chronywake did not succeed.</source>
        <extracomment>alert after a test of chronywake</extracomment>
        <translation>chronywake hatte keinen Erfolg.</translation>
    </message>
    <message>
        <source>It gave no answer.</source>
        <extracomment>alert after a test of chronywake that gave no answer</extracomment>
        <translation>Es gab keine Antwort.</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <extracomment>button of an alert</extracomment>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>The defaults are back.</source>
        <extracomment>General preferences: said after the button Restore Defaults</extracomment>
        <translation>Die Vorgaben sind wiederhergestellt.</translation>
    </message>
    <message>
        <source>Every warning is shown again.</source>
        <extracomment>General preferences: said after the button Reset Warnings</extracomment>
        <translation>Alle Warnungen werden wieder gezeigt.</translation>
    </message>
    <message>
        <source>chronywake is not installed.</source>
        <extracomment>General preferences: said below the path of chronywake</extracomment>
        <translation>chronywake ist nicht installiert.</translation>
    </message>
    <message>
        <source>Apply installs chronywake.</source>
        <extracomment>General preferences: said after the box &quot;Install chronywake&quot; was ticked, about the button Apply</extracomment>
        <translation>Anwenden installiert chronywake.</translation>
    </message>
    <message>
        <source>Apply removes chronywake.</source>
        <extracomment>General preferences: said after that box was cleared</extracomment>
        <translation>Anwenden entfernt chronywake.</translation>
    </message>
    <message>
        <source>chronywake is installed with these arguments.</source>
        <extracomment>General preferences: said when chronywake runs as a service with the arguments in the window</extracomment>
        <translation>chronywake ist mit diesen Argumenten installiert.</translation>
    </message>
    <message>
        <source>chronywake is removed.</source>
        <extracomment>General preferences: said after the button Apply</extracomment>
        <translation>chronywake ist entfernt.</translation>
    </message>
    <message>
        <source>These are the demonstration&apos;s own files. Yours are left alone.</source>
        <extracomment>General preferences in a demonstration: said below chrony&apos;s paths</extracomment>
        <translation>Das sind die eigenen Dateien der Vorführung. Ihre bleiben unberührt.</translation>
    </message>
    <message>
        <source>Not in a demonstration: it leaves your system as it is.</source>
        <extracomment>General preferences in a demonstration: said below the box that keeps a history</extracomment>
        <translation>Nicht in einer Vorführung: sie lässt Ihr System, wie es ist.</translation>
    </message>
</context>
<context>
    <name>tickervantage::PreferencesUpdatePane</name>
    <message>
        <source>This is Tickervantage %1.</source>
        <extracomment>preferences, updates: %1 is the version number</extracomment>
        <translation>Dies ist Tickervantage %1.</translation>
    </message>
    <message>
        <source>Version</source>
        <extracomment>preferences, updates: name of the line with the version</extracomment>
        <translation>Version</translation>
    </message>
    <message>
        <source>Updates come from the package manager that installed the program, together with those of your system. Tickervantage does not look for them itself and sends nothing to anybody.</source>
        <extracomment>preferences, updates</extracomment>
        <translation>Aktualisierungen kommen von der Paketverwaltung, die das Programm installiert hat, zusammen mit denen Ihres Systems. Tickervantage sucht nicht selbst danach und sendet niemandem etwas.</translation>
    </message>
    <message>
        <source>Updates</source>
        <extracomment>preferences: name of a pane</extracomment>
        <translation>Aktualisierungen</translation>
    </message>
</context>
<context>
    <name>tickervantage::PreferencesWatchPane</name>
    <message>
        <source></source>
        <comment>Preferences, Watching: from which limits on the user is told that something is wrong with the clock.</comment>
        <translation></translation>
    </message>
    <message>
        <source>Tell me with a &amp;notification when something is wrong</source>
        <extracomment>Watching preferences: check box</extracomment>
        <translation>Mit einer &amp;Benachrichtigung melden, wenn etwas nicht stimmt</translation>
    </message>
    <message>
        <source>Tell me with a notification when something is wrong</source>
        <extracomment>Watching preferences: name of that check box</extracomment>
        <translation>Mit einer Benachrichtigung melden, wenn etwas nicht stimmt</translation>
    </message>
    <message>
        <source>Show an &amp;icon in the tray, and go on when the window is closed</source>
        <extracomment>Watching preferences: check box</extracomment>
        <translation>&amp;Symbol im Benachrichtigungsfeld zeigen und weiterlaufen, wenn das Fenster geschlossen wird</translation>
    </message>
    <message>
        <source>Show an icon in the tray, and go on when the window is closed</source>
        <extracomment>Watching preferences: name of that check box</extracomment>
        <translation>Symbol im Benachrichtigungsfeld zeigen und weiterlaufen, wenn das Fenster geschlossen wird</translation>
    </message>
    <message>
        <source>Alarm when</source>
        <extracomment>Watching preferences: heading of the list of alarms</extracomment>
        <translation>Alarm, wenn</translation>
    </message>
    <message>
        <source>Times in your log</source>
        <extracomment>Watching preferences: heading above the numbers of alarms that there would have been</extracomment>
        <translation>Wie oft in Ihrem Protokoll</translation>
    </message>
    <message>
        <source> min</source>
        <extracomment>Watching preferences: unit behind a number of minutes</extracomment>
        <translation> min</translation>
    </message>
    <message>
        <source>Watching</source>
        <extracomment>preferences: name of a pane</extracomment>
        <translation>Überwachung</translation>
    </message>
    <message>
        <source>Counted in your tracking log of %1. It does not know of the others.</source>
        <extracomment>Watching preferences: below the list of alarms; %1 is a span of time such as &quot;3 d 4 h&quot;</extracomment>
        <translation>Gezählt in Ihrem Tracking-Protokoll über %1. Von den anderen weiß es nichts.</translation>
    </message>
    <message>
        <source>How often each would have been raised is counted in chrony&apos;s tracking log. There is none that you may read: turn logging on in the main window, or in chrony.conf with “log tracking”.</source>
        <translation>Wie oft jeder ausgelöst worden wäre, wird in chronys Tracking-Protokoll gezählt. Es gibt keines, das Sie lesen dürfen: Schalten Sie das Protokollieren im Hauptfenster ein oder in chrony.conf mit „log tracking“.</translation>
    </message>
</context>
<context>
    <name>tickervantage::SensorInspector</name>
    <message>
        <source>Sensor Inspector</source>
        <extracomment>sensor inspector: title</extracomment>
        <translation>Sensor-Inspektor</translation>
    </message>
    <message>
        <source>Equation</source>
        <extracomment>sensor inspector: name of the text above the table</extracomment>
        <translation>Gleichung</translation>
    </message>
    <message>
        <source>Nothing is known yet. The window “Frequency and Temperature” collects the points, and tells them here with each reading of the clock&apos;s frequency while it is open.</source>
        <extracomment>sensor inspector: shown in place of an empty table</extracomment>
        <translation>Noch ist nichts bekannt. Das Fenster „Frequenz und Temperatur“ sammelt die Punkte und meldet sie hier mit jedem Ablesen der Frequenz der Uhr, solange es offen ist.</translation>
    </message>
    <message>
        <source>Sensors</source>
        <extracomment>sensor inspector: name of the table</extracomment>
        <translation>Sensoren</translation>
    </message>
    <message>
        <source>&amp;Copy Rows</source>
        <extracomment>sensor inspector: menu item, the selected rows go to the clipboard</extracomment>
        <translation>Zeilen &amp;kopieren</translation>
    </message>
</context>
<context>
    <name>tickervantage::ServersWindow</name>
    <message>
        <source>Servers</source>
        <extracomment>server window: title</extracomment>
        <translation>Server</translation>
    </message>
    <message>
        <source>The saved list is none: %1. It is kept under another name as soon as you change something here.</source>
        <extracomment>server window: %1 is a reason, such as &quot;it is a folder&quot;</extracomment>
        <translation>Die gespeicherte Liste ist keine: %1. Sie wird unter anderem Namen aufbewahrt, sobald Sie hier etwas ändern.</translation>
    </message>
    <message>
        <source>The saved list cannot be read: %1.</source>
        <extracomment>server window: %1 is a reason, such as &quot;Permission denied&quot;</extracomment>
        <translation>Die gespeicherte Liste kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>Another window or program changed the list; this is the list as it is now.</source>
        <extracomment>server window: said when the list on the disk is newer</extracomment>
        <translation>Ein anderes Fenster oder Programm hat die Liste geändert; dies ist ihr jetziger Stand.</translation>
    </message>
    <message>
        <source>%1 The change stays here, but it is not saved yet.</source>
        <extracomment>server window: %1 is a sentence that says why</extracomment>
        <translation>%1 Die Änderung bleibt hier, ist aber noch nicht gespeichert.</translation>
    </message>
    <message>
        <source>Another window or program had changed the list. Its version was kept as %1.</source>
        <extracomment>server window: %1 is a file</extracomment>
        <translation>Ein anderes Fenster oder Programm hatte die Liste geändert. Dessen Fassung wurde als %1 aufbewahrt.</translation>
    </message>
    <message>
        <source>No browser could be started. The page is %1.</source>
        <extracomment>server window: %1 is the address of a page</extracomment>
        <translation>Es konnte kein Browser gestartet werden. Die Seite ist %1.</translation>
    </message>
    <message>
        <source>Servers copied as lines of chrony&apos;s configuration: %1.</source>
        <extracomment>server window: said when the list went to the clipboard; %1 the number of servers</extracomment>
        <translation>Server als Zeilen der chrony-Konfiguration kopiert: %1.</translation>
    </message>
    <message>
        <source>No configuration is open in the editor.</source>
        <extracomment>server window: said when there is no editor to insert into</extracomment>
        <translation>Im Editor ist keine Konfiguration geöffnet.</translation>
    </message>
    <message>
        <source>Servers imported from %1: %2.</source>
        <extracomment>server window: said after an import; %1 a file, %2 the number of servers that were added</extracomment>
        <translation>Aus %1 importierte Server: %2.</translation>
    </message>
    <message>
        <source> In the list already: %1.</source>
        <extracomment>server window: goes on from there; %1 the number of servers</extracomment>
        <translation> Schon in der Liste: %1.</translation>
    </message>
    <message>
        <source> IPv6 addresses left out, since the list&apos;s file cannot hold a colon: %1.</source>
        <extracomment>server window: goes on from there; %1 the number of addresses</extracomment>
        <translation> IPv6-Adressen ausgelassen, weil die Datei der Liste keinen Doppelpunkt aufnehmen kann: %1.</translation>
    </message>
    <message>
        <source>Open a configuration in the editor first</source>
        <extracomment>server window: tooltip of that button while the editor is closed</extracomment>
        <translation>Öffnen Sie zuerst eine Konfiguration im Editor</translation>
    </message>
    <message>
        <source> Copied as comments, since something is wrong with them: %1.</source>
        <extracomment>server window: goes on from there; %1 the number of servers</extracomment>
        <translation> Als Kommentare kopiert, weil mit ihnen etwas nicht stimmt: %1.</translation>
    </message>
    <message>
        <source>Insert the list as lines where the cursor stands</source>
        <extracomment>server window: tooltips of the button that inserts the list into the editor</extracomment>
        <translation>Die Liste als Zeilen einfügen, wo die Schreibmarke steht</translation>
    </message>
</context>
<context>
    <name>tickervantage::SpectrumWindow</name>
    <message>
        <source>Spectrum</source>
        <extracomment>spectrum window: title</extracomment>
        <translation>Spektrum</translation>
    </message>
    <message>
        <source>Choose Compute to see the spectrum</source>
        <extracomment>spectrum window: shown in place of the chart while a tracking window is open, before the first computation</extracomment>
        <translation>„Berechnen“ zeigt das Spektrum</translation>
    </message>
    <message>
        <source>No tracking log is open; the chart shows the last spectrum.</source>
        <extracomment>spectrum window: said below the chart when it cannot be computed anew</extracomment>
        <translation>Es ist kein Tracking-Protokoll geöffnet; das Diagramm zeigt das letzte Spektrum.</translation>
    </message>
    <message>
        <source>The duration is not a number.</source>
        <extracomment>spectrum window: said when a field holds no number</extracomment>
        <translation>Die Dauer ist keine Zahl.</translation>
    </message>
    <message>
        <source>The interval is not a number.</source>
        <extracomment>spectrum window: said when a field holds no number</extracomment>
        <translation>Das Intervall ist keine Zahl.</translation>
    </message>
    <message>
        <source>The tracking log changed meanwhile; compute again.</source>
        <extracomment>spectrum window: said when the log was closed or read anew during a computation</extracomment>
        <translation>Das Tracking-Protokoll hat sich inzwischen geändert; bitte erneut berechnen.</translation>
    </message>
    <message>
        <source>The tracking log has fewer than two records: there is nothing to analyse yet.</source>
        <extracomment>spectrum window: said when the chart has no bars</extracomment>
        <translation>Das Tracking-Protokoll hat weniger als zwei Einträge: Noch gibt es nichts zu untersuchen.</translation>
    </message>
    <message>
        <source>Computing…</source>
        <extracomment>spectrum window: said while a long log is being read</extracomment>
        <translation>Berechnung läuft …</translation>
    </message>
    <message>
        <source>%1: %2 samples as %3 bars, slow changes at the left; the shaded half mirrors the other.</source>
        <extracomment>spectrum window: what the chart shows; %1 the series, %2 and %3 whole numbers</extracomment>
        <translation>%1: %2 Werte als %3 Balken, langsame Änderungen links; die schattierte Hälfte spiegelt die andere.</translation>
    </message>
    <message>
        <source>A spectrum shows what repeats in a tracking log. Open one with “Open Tracking Log…” or “Live Tracking Graph” in the menu File of the main window, then choose Compute here.</source>
        <extracomment>spectrum window: shown in place of the chart while no tracking window is open</extracomment>
        <translation>Ein Spektrum zeigt, was sich in einem Tracking-Protokoll wiederholt. Öffnen Sie eines mit „Tracking-Protokoll öffnen …“ oder „Laufende Tracking-Grafik“ im Menü „Datei“ des Hauptfensters und wählen Sie dann hier „Berechnen“.</translation>
    </message>
</context>
<context>
    <name>tickervantage::StepTime</name>
    <message>
        <source>%1 d</source>
        <extracomment>step window: parts of a length of time; %1 is a number</extracomment>
        <translation>%1 d</translation>
    </message>
    <message>
        <source>%1 h</source>
        <extracomment>step window: part of a length of time; %1 is a number of hours</extracomment>
        <translation>%1 h</translation>
    </message>
    <message>
        <source>%1 min</source>
        <extracomment>step window: part of a length of time; %1 is a number of minutes</extracomment>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 s</source>
        <extracomment>step window: part of a length of time; %1 is a number of seconds</extracomment>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>The clock stays as it is.</source>
        <extracomment>step window: below the field with the offset</extracomment>
        <translation>Die Uhr bleibt, wie sie ist.</translation>
    </message>
    <message>
        <source>The clock will go back %1.</source>
        <extracomment>step window: below the field with the offset; %1 is a length of time</extracomment>
        <translation>Die Uhr wird um %1 zurückgestellt.</translation>
    </message>
    <message>
        <source>The clock will go forward %1.</source>
        <extracomment>step window: below the field with the offset; %1 is a length of time</extracomment>
        <translation>Die Uhr wird um %1 vorgestellt.</translation>
    </message>
    <message>
        <source>Step the Clock</source>
        <extracomment>step window: title</extracomment>
        <translation>Uhr stellen</translation>
    </message>
    <message>
        <source>Offset</source>
        <extracomment>step window: name of the field, and its tooltip</extracomment>
        <translation>Abweichung</translation>
    </message>
    <message>
        <source>Seconds, such as −1.5; a positive number sets the clock forward</source>
        <extracomment>step window: tooltip of the offset</extracomment>
        <translation>Sekunden, wie −1,5; eine positive Zahl stellt die Uhr vor</translation>
    </message>
    <message>
        <source>&amp;Step</source>
        <extracomment>step window: button</extracomment>
        <translation>&amp;Stellen</translation>
    </message>
    <message>
        <source>Step</source>
        <extracomment>step window: name of the button</extracomment>
        <translation>Stellen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <extracomment>step window: button</extracomment>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>This is no number of seconds.</source>
        <extracomment>step window: said when the field holds no offset</extracomment>
        <translation>Das ist keine Anzahl von Sekunden.</translation>
    </message>
    <message>
        <source>&amp;Move the clock by (seconds):</source>
        <extracomment>step window: label</extracomment>
        <translation>Uhr &amp;verstellen um (Sekunden):</translation>
    </message>
</context>
<context>
    <name>tickervantage::Synchronize</name>
    <message>
        <source>Synchronise Now</source>
        <extracomment>synchronise window: title</extracomment>
        <translation>Jetzt synchronisieren</translation>
    </message>
    <message>
        <source>Server</source>
        <extracomment>synchronise window: name of the field, and its tooltip</extracomment>
        <translation>Server</translation>
    </message>
    <message>
        <source>The NTP server that sets the clock</source>
        <extracomment>synchronise window: tooltip of the server</extracomment>
        <translation>Der NTP-Server, nach dem die Uhr gestellt wird</translation>
    </message>
    <message>
        <source>Time-out</source>
        <extracomment>synchronise window: name of the number field, and its tooltip</extracomment>
        <translation>Zeitgrenze</translation>
    </message>
    <message>
        <source>Seconds after which chronyd gives up</source>
        <extracomment>synchronise window: tooltip of the time-out</extracomment>
        <translation>Sekunden, nach denen chronyd aufgibt</translation>
    </message>
    <message>
        <source> s</source>
        <extracomment>synchronise window: unit behind the number of seconds</extracomment>
        <translation> s</translation>
    </message>
    <message>
        <source>&amp;Restart chronyd afterwards</source>
        <extracomment>synchronise window: check box, and its tooltip</extracomment>
        <translation>&amp;Danach chronyd neu starten</translation>
    </message>
    <message>
        <source>Restart chronyd afterwards</source>
        <extracomment>synchronise window: name of that check box</extracomment>
        <translation>Danach chronyd neu starten</translation>
    </message>
    <message>
        <source>Off: the clock runs on its own from then on</source>
        <extracomment>synchronise window: tooltip of that check box</extracomment>
        <translation>Aus: Die Uhr läuft von da an für sich allein</translation>
    </message>
    <message>
        <source>Output</source>
        <extracomment>synchronise window: name of the text that chronyd printed</extracomment>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Synchronising</source>
        <extracomment>synchronise window: name of the bar that moves meanwhile</extracomment>
        <translation>Synchronisierung</translation>
    </message>
    <message>
        <source>&amp;Synchronise</source>
        <extracomment>synchronise window: button, and its tooltip</extracomment>
        <translation>&amp;Synchronisieren</translation>
    </message>
    <message>
        <source>Synchronise</source>
        <extracomment>synchronise window: name of the button</extracomment>
        <translation>Synchronisieren</translation>
    </message>
    <message>
        <source>Stop chronyd and set the clock from this server</source>
        <extracomment>synchronise window: tooltip of the button</extracomment>
        <translation>chronyd anhalten und die Uhr nach diesem Server stellen</translation>
    </message>
    <message>
        <source>Close</source>
        <extracomment>synchronise window: button</extracomment>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>S&amp;erver:</source>
        <extracomment>synchronise window: labels</extracomment>
        <translation>S&amp;erver:</translation>
    </message>
    <message>
        <source>A server has a name or an address, without quotes or signs.</source>
        <extracomment>synchronise window: said while the field holds no server&apos;s name</extracomment>
        <translation>Ein Server hat einen Namen oder eine Adresse, ohne Anführungs- und Sonderzeichen.</translation>
    </message>
    <message>
        <source>Synchronising; this may take %1 s…</source>
        <extracomment>synchronise window: said meanwhile; %1 is a number</extracomment>
        <translation>Die Uhr wird synchronisiert; das kann %1 s dauern …</translation>
    </message>
    <message>
        <source>&amp;Give up after:</source>
        <extracomment>synchronise window: label of the number of seconds</extracomment>
        <translation>Auf&amp;geben nach:</translation>
    </message>
    <message>
        <source>chronyd is stopped, asks this server, and sets the clock at once.
What it says meanwhile appears here.</source>
        <extracomment>one-time synchronisation: in place of chronyd&apos;s words, before there are any</extracomment>
        <translation>chronyd wird angehalten, fragt diesen Server und stellt die Uhr sofort.
Was er dabei sagt, erscheint hier.</translation>
    </message>
</context>
<context>
    <name>tickervantage::TickervantageWindow</name>
    <message>
        <source>GPS Configuration</source>
        <extracomment>main window: toolbar item that launches the application which configures a GPS receiver</extracomment>
        <translation>GPS-Konfiguration</translation>
    </message>
    <message>
        <source>Open Meridianox to configure a GPS receiver</source>
        <extracomment>main window: tooltip of that item</extracomment>
        <translation>Meridianox öffnen, um einen GPS-Empfänger zu konfigurieren</translation>
    </message>
    <message>
        <source>Main Toolbar</source>
        <extracomment>main window: name of the toolbar</extracomment>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <source>%1: not available</source>
        <extracomment>main window: in place of a version; %1 is a program that could not be asked for it</extracomment>
        <translation>%1: nicht verfügbar</translation>
    </message>
    <message>
        <source>Last reading: %1</source>
        <extracomment>main window, status line: %1 is a time</extracomment>
        <translation>Letzte Ablesung: %1</translation>
    </message>
    <message>
        <source>chronyc gave no answer: %1</source>
        <extracomment>main window, status line: %1 says what happened to chronyc</extracomment>
        <translation>chronyc gab keine Antwort: %1</translation>
    </message>
    <message>
        <source>chronyd gave no answer.</source>
        <extracomment>main window, status line</extracomment>
        <translation>chronyd gab keine Antwort.</translation>
    </message>
    <message>
        <source>chronyd gave no answer: %1</source>
        <extracomment>main window, status line: %1 is what chronyc printed instead of a report</extracomment>
        <translation>chronyd gab keine Antwort: %1</translation>
    </message>
    <message>
        <source>The report “%1” needs administrator rights, which were not given.</source>
        <extracomment>main window, status line: %1 is a chronyc command</extracomment>
        <translation>Der Bericht „%1“ braucht Administratorrechte, die nicht gegeben wurden.</translation>
    </message>
    <message>
        <source>The report is not complete: %1</source>
        <extracomment>main window, status line: %1 says why the shown report failed or was cut</extracomment>
        <translation>Der Bericht ist unvollständig: %1</translation>
    </message>
    <message>
        <source>Asked for its version, %1 printed “%2”, which is not how chrony answers. Please check the path of %1 in the preferences.</source>
        <extracomment>main window, notice: %1 is chronyc or chronyd, %2 what it printed when asked for its version</extracomment>
        <translation>Nach seiner Version gefragt, gab %1 „%2“ aus; so antwortet chrony nicht. Bitte prüfen Sie den Pfad von %1 in den Einstellungen.</translation>
    </message>
    <message>
        <source>Output Font</source>
        <extracomment>title of the dialog that chooses the font of chronyc&apos;s output</extracomment>
        <translation>Schrift der Ausgabe</translation>
    </message>
    <message>
        <source>chronyd answers, with the leap status “%1”.</source>
        <extracomment>main window, status line: %1 is chrony&apos;s word for a leap second that is announced, such as &quot;Delete second&quot;</extracomment>
        <translation>chronyd antwortet, mit dem Schaltsekundenstatus „%1“.</translation>
    </message>
    <message>
        <source>%1 gave no answer (%2). Either it cannot be reached, or its chronyd does not answer other machines: that takes the directives cmdallow and bindcmdaddress in its chrony.conf.</source>
        <extracomment>main window, status line: %1 is another machine, %2 what chronyc printed instead of a report</extracomment>
        <translation>%1 hat nicht geantwortet (%2). Entweder ist der Rechner nicht erreichbar, oder sein chronyd antwortet anderen Rechnern nicht: Dazu braucht dessen chrony.conf die Anweisungen cmdallow und bindcmdaddress.</translation>
    </message>
    <message>
        <source>Asking this machine…</source>
        <extracomment>main window, status line: this machine is read again</extracomment>
        <translation>Dieser Rechner wird gefragt…</translation>
    </message>
    <message>
        <source>Asking %1…</source>
        <extracomment>main window, status line: %1 is another machine</extracomment>
        <translation>%1 wird gefragt…</translation>
    </message>
    <message>
        <source>chronyd gives the report “%1” to root on its own machine alone. Choose another report.</source>
        <extracomment>main window, status line: %1 is a chronyc command</extracomment>
        <translation>Den Bericht „%1“ gibt chronyd nur root auf dem eigenen Rechner. Wählen Sie einen anderen Bericht.</translation>
    </message>
    <message>
        <source>%1 – Tickervantage</source>
        <extracomment>main window: its title while the clock of another machine is shown; %1 is that machine</extracomment>
        <translation>%1 – Tickervantage</translation>
    </message>
    <message>
        <source>This is the clock of %1. It is only read: what changes chrony, the history, the alarms and the icon in the tray stay with this machine.</source>
        <extracomment>main window, banner: %1 is another machine</extracomment>
        <translation>Dies ist die Uhr von %1. Dort wird nur gelesen: Was chrony ändert, der Verlauf, die Warnungen und das Symbol im Infobereich bleiben bei diesem Rechner.</translation>
    </message>
</context>
<context>
    <name>tickervantage::Watcher</name>
    <message>
        <source>The clock needs attention</source>
        <extracomment>notification of the desktop: its title</extracomment>
        <translation>Die Uhr braucht Aufmerksamkeit</translation>
    </message>
    <message>
        <source>&amp;Show Tickervantage</source>
        <extracomment>menu of the icon in the tray</extracomment>
        <translation>Tickervantage &amp;zeigen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <extracomment>menu of the icon in the tray</extracomment>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>The clock is still being watched. This icon shows how it is and brings the window back; its menu ends the program.</source>
        <extracomment>message beside the icon in the tray, when the main window is closed for the first time</extracomment>
        <translation>Die Uhr wird weiter überwacht. Dieses Symbol zeigt, wie es um sie steht, und holt das Fenster zurück; sein Menü beendet das Programm.</translation>
    </message>
</context>
<context>
    <name>tracking</name>
    <message>
        <source>Time range</source>
        <extracomment>tracking window: menu that chooses how much of the log is shown</extracomment>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>Whole log</source>
        <extracomment>tracking window: time range</extracomment>
        <translation>Ganzes Protokoll</translation>
    </message>
    <message numerus="yes">
        <source>%n hour(s)</source>
        <extracomment>tracking window: time range</extracomment>
        <translation>
            <numerusform>%n Stunde</numerusform>
            <numerusform>%n Stunden</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Legend</source>
        <extracomment>tracking window: button that opens the legend</extracomment>
        <translation>&amp;Legende</translation>
    </message>
    <message>
        <source>Series, colours and scale</source>
        <extracomment>tracking window: tooltip of the legend&apos;s button</extracomment>
        <translation>Reihen, Farben und Skala</translation>
    </message>
    <message>
        <source>&amp;Spectrum</source>
        <extracomment>tracking window: button that opens the spectrum of the shown data</extracomment>
        <translation>&amp;Spektrum</translation>
    </message>
    <message>
        <source>Spectrum of this log</source>
        <extracomment>tracking window: tooltip of the spectrum&apos;s button</extracomment>
        <translation>Spektrum dieses Protokolls</translation>
    </message>
    <message>
        <source>Pause or resume</source>
        <extracomment>tracking window: name of the pair of buttons that stop and resume a live graph</extracomment>
        <translation>Anhalten oder fortsetzen</translation>
    </message>
    <message>
        <source>Pause</source>
        <extracomment>tracking window: button and its tooltip</extracomment>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Stop the graph at this moment</source>
        <extracomment>tracking window: tooltip of the button Pause</extracomment>
        <translation>Die Grafik in diesem Augenblick anhalten</translation>
    </message>
    <message>
        <source>Play</source>
        <extracomment>tracking window: button and its tooltip</extracomment>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Let the graph run</source>
        <extracomment>tracking window: tooltip of the button Play</extracomment>
        <translation>Die Grafik weiterlaufen lassen</translation>
    </message>
    <message>
        <source>Log</source>
        <extracomment>tracking window: name of the text with the log&apos;s path</extracomment>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>First record</source>
        <extracomment>tracking window: times of the first and the last record</extracomment>
        <translation>Erster Eintrag</translation>
    </message>
    <message>
        <source>Last record</source>
        <extracomment>tracking window: time of the last record</extracomment>
        <translation>Letzter Eintrag</translation>
    </message>
    <message>
        <source>Under the pointer</source>
        <extracomment>tracking window: values of the record under the pointer</extracomment>
        <translation>Unter dem Zeiger</translation>
    </message>
    <message>
        <source>Reading the log</source>
        <extracomment>tracking window: sign that a log is being read</extracomment>
        <translation>Das Protokoll wird gelesen</translation>
    </message>
    <message>
        <source>&amp;Time</source>
        <extracomment>tracking window: labels of the three sliders</extracomment>
        <translation>&amp;Zeit</translation>
    </message>
    <message>
        <source>&amp;Height</source>
        <extracomment>tracking window: label of a slider</extracomment>
        <translation>&amp;Höhe</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <extracomment>tracking window: label of a slider</extracomment>
        <translation>&amp;Einheit</translation>
    </message>
    <message>
        <source>Tracking graph</source>
        <extracomment>tracking window: name of the graph</extracomment>
        <translation>Tracking-Grafik</translation>
    </message>
    <message>
        <source>The log has no records yet.</source>
        <extracomment>tracking window: read out by screen readers</extracomment>
        <translation>Das Protokoll hat noch keine Einträge.</translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) from %1 to %2. Newest: %3</source>
        <extracomment>tracking window: the graph as screen readers read it out; %1 and %2 are times, %3 the newest record</extracomment>
        <translation>
            <numerusform>%n Eintrag von %1 bis %2. Neuester: %3</numerusform>
            <numerusform>%n Einträge von %1 bis %2. Neuester: %3</numerusform>
        </translation>
    </message>
    <message>
        <source>E&amp;xport…</source>
        <extracomment>tracking window: button, saves the graph as a picture or its records as a table</extracomment>
        <translation>E&amp;xportieren …</translation>
    </message>
    <message>
        <source>Save the graph as a picture, or its records as CSV (Ctrl+S)</source>
        <extracomment>tracking window: tooltip of that button</extracomment>
        <translation>Die Grafik als Bild oder ihre Einträge als CSV speichern (Strg+S)</translation>
    </message>
    <message>
        <source>Export</source>
        <extracomment>tracking window: name of the button that exports</extracomment>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>chronyd writes no tracking log: %1 asks for one, but no line “logdir” says where to.
Add a line such as “logdir /var/log/chrony” in the configuration editor, check it, and install it.</source>
        <extracomment>tracking window: shown in place of the graph; %1 is the path of chrony.conf</extracomment>
        <translation>chronyd schreibt kein Tracking-Protokoll: %1 verlangt eines, aber keine Zeile „logdir“ sagt, wohin.
Fügen Sie im Konfigurationseditor eine Zeile wie „logdir /var/log/chrony“ ein, prüfen und installieren Sie sie.</translation>
    </message>
    <message>
        <source>All records of this log are older than the time range shown.
Choose a longer range, or the whole log.</source>
        <extracomment>tracking window: shown in place of the graph</extracomment>
        <translation>Alle Einträge dieses Protokolls sind älter als der gezeigte Zeitraum.
Wählen Sie einen längeren Zeitraum oder das ganze Protokoll.</translation>
    </message>
    <message>
        <source>This file holds no record of a tracking log.</source>
        <extracomment>tracking window: shown in place of the graph of a file that somebody opened</extracomment>
        <translation>Diese Datei enthält keinen Eintrag eines Tracking-Protokolls.</translation>
    </message>
    <message>
        <source>The log has no record yet.
chronyd adds one with each update of the clock, once it follows a server.</source>
        <extracomment>tracking window: shown in place of the graph</extracomment>
        <translation>Das Protokoll hat noch keinen Eintrag.
chronyd fügt mit jeder Korrektur der Uhr einen hinzu, sobald er einem Server folgt.</translation>
    </message>
    <message>
        <source>The log has no record yet.
chronyd adds one with each update of the clock, if its configuration has the lines “log tracking” and “logdir”.</source>
        <extracomment>tracking window: shown in place of the graph</extracomment>
        <translation>Das Protokoll hat noch keinen Eintrag.
chronyd fügt mit jeder Korrektur der Uhr einen hinzu, wenn seine Konfiguration die Zeilen „log tracking“ und „logdir“ enthält.</translation>
    </message>
    <message>
        <source>Unit: seconds to nanoseconds</source>
        <extracomment>tracking window: tooltip of a slider</extracomment>
        <translation>Einheit: Sekunden bis Nanosekunden</translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <extracomment>tracking window: button that chooses height and unit
----------
tracking window: menu item of the graph, chooses height and unit</extracomment>
        <translation>Ein&amp;passen</translation>
    </message>
    <message>
        <source>Choose the height and the unit that suit the values in sight (F or double click)</source>
        <extracomment>tracking window: tooltip of that button</extracomment>
        <translation>Höhe und Einheit wählen, die zu den sichtbaren Werten passen (F oder Doppelklick)</translation>
    </message>
    <message>
        <source>Fit</source>
        <extracomment>tracking window: name of that button</extracomment>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>&amp;Reset Zoom</source>
        <extracomment>tracking window: menu item of the graph, time and height as they are at first</extracomment>
        <translation>Maßstab &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <extracomment>exported graph: the time that it shows; %1 and %2 are dates with time and zone</extracomment>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>&amp;Make Readable</source>
        <extracomment>tracking window: button, shown where the log may be read by chronyd alone</extracomment>
        <translation>Lesbar &amp;machen</translation>
    </message>
    <message>
        <source>Let everybody on this computer read chrony&apos;s tracking log, from now on</source>
        <extracomment>tracking window: tooltip of that button</extracomment>
        <translation>Allen auf diesem Rechner von nun an erlauben, das Tracking-Protokoll von chrony zu lesen</translation>
    </message>
    <message>
        <source>Tracking log – live</source>
        <extracomment>tracking window: title, of the log that chronyd is writing</extracomment>
        <translation>Tracking-Protokoll – laufend</translation>
    </message>
    <message>
        <source>The demonstration&apos;s tracking log</source>
        <extracomment>tracking window: stands in place of the log&apos;s path</extracomment>
        <translation>Das Tracking-Protokoll der Vorführung</translation>
    </message>
    <message>
        <source>Zoom in on a shorter time</source>
        <extracomment>tracking window: tooltips of the three sliders</extracomment>
        <translation>Eine kürzere Zeit vergrößern</translation>
    </message>
    <message>
        <source>Zoom in on smaller values</source>
        <extracomment>tracking window: tooltip of a slider</extracomment>
        <translation>Kleinere Werte vergrößern</translation>
    </message>
    <message>
        <source>chronyd writes no tracking log: %1 has no line “log tracking”.
“Turn On Logging…” in the main window adds that line; so can you, in the configuration editor.</source>
        <extracomment>tracking window: shown in place of the graph; %1 is the path of chrony.conf</extracomment>
        <translation>chronyd schreibt kein Tracking-Protokoll: In %1 fehlt die Zeile „log tracking“.
„Protokolle einschalten…“ im Hauptfenster fügt sie hinzu; Sie können es auch im Konfigurationseditor.</translation>
    </message>
</context>
<context>
    <name>trend</name>
    <message>
        <source>Nothing vouched for the clock in this time. Once chronyd follows a source, its error appears here.</source>
        <extracomment>main window: in place of the picture of the last hour</extracomment>
        <translation>In dieser Zeit bürgte nichts für die Uhr. Sobald chronyd einer Quelle folgt, erscheint hier ihr Fehler.</translation>
    </message>
    <message>
        <source>within ±%1</source>
        <extracomment>main window, last hour: what is pointed at; %1 is a time such as 12 µs</extracomment>
        <translation>innerhalb ±%1</translation>
    </message>
    <message>
        <source>system time %1</source>
        <extracomment>main window, last hour: what is pointed at, in chrony&apos;s words; %1 is a time such as +12 µs</extracomment>
        <translation>Systemzeit %1</translation>
    </message>
    <message>
        <source>What the last hour shows</source>
        <extracomment>main window: name of the title above the picture of the last hour</extracomment>
        <translation>Was die letzte Stunde zeigt</translation>
    </message>
    <message>
        <source>Values pointed at</source>
        <extracomment>main window: name of the values of the last hour that are pointed at</extracomment>
        <translation>Angezeigte Werte</translation>
    </message>
    <message>
        <source>Band: how far off the clock can have been. Line: how far off it was held to be. Coloured lane: its state. Click, or press Return, for the whole history.</source>
        <extracomment>main window: tooltip of the title above the picture of the last hour</extracomment>
        <translation>Band: wie falsch die Uhr höchstens gehen konnte. Linie: wie falsch sie vermutlich ging. Farbstreifen: ihr Zustand. Klick oder Eingabetaste öffnet den ganzen Verlauf.</translation>
    </message>
    <message>
        <source>Last hour</source>
        <extracomment>main window: name of the picture of the last hour</extracomment>
        <translation>Letzte Stunde</translation>
    </message>
    <message>
        <source>Error of the clock in the last %1 min</source>
        <extracomment>main window: title of the picture of the clock&apos;s error; %1 is a number of minutes</extracomment>
        <translation>Fehler der Uhr in den letzten %1 min</translation>
    </message>
    <message>
        <source>Error of the clock in the last hour</source>
        <extracomment>main window: title of the picture of the clock&apos;s error</extracomment>
        <translation>Fehler der Uhr in der letzten Stunde</translation>
    </message>
    <message>
        <source>%1, in %2</source>
        <extracomment>main window: title of the picture of the clock&apos;s error; %1 is the title without the unit, %2 a unit such as µs</extracomment>
        <translation>%1, in %2</translation>
    </message>
</context>
<context>
    <name>verdict</name>
    <message>
        <source>The clock runs on by itself: its error grows until a source answers again.</source>
        <extracomment>main window: notice while no source keeps the clock right</extracomment>
        <translation>Die Uhr läuft für sich allein weiter: Ihr Fehler wächst, bis wieder eine Quelle antwortet.</translation>
    </message>
    <message>
        <source>Nothing compares this clock with true time, although chronyd calls it synchronised.</source>
        <extracomment>main window: notice while chronyd follows nothing but this machine&apos;s own clock</extracomment>
        <translation>Nichts vergleicht diese Uhr mit der wahren Zeit, obwohl chronyd sie synchronisiert nennt.</translation>
    </message>
    <message>
        <source>Until the correction is done, the clock is further off than its sources would leave open.</source>
        <extracomment>main window: notice while a large offset is being corrected slowly</extracomment>
        <translation>Bis die Korrektur beendet ist, geht die Uhr um mehr falsch, als ihre Quellen offen lassen.</translation>
    </message>
    <message>
        <source>Verdict</source>
        <extracomment>main window: name of the image of the verdict on the clock</extracomment>
        <translation>Urteil</translation>
    </message>
    <message>
        <source>What the error bound is made of</source>
        <extracomment>main window: name of the bar that shows what the error bound is made of</extracomment>
        <translation>Woraus die Fehlergrenze besteht</translation>
    </message>
    <message>
        <source>What the error bound is made of: the correction that is under way, half of the delay on the way to the reference clock, what the measurements leave open, and what was added since the last of them.</source>
        <extracomment>main window: tooltip of that bar</extracomment>
        <translation>Woraus die Fehlergrenze besteht: die laufende Korrektur, die halbe Laufzeit bis zur Referenzuhr, was die Messungen offen lassen, und was seit der letzten Messung dazukam.</translation>
    </message>
    <message>
        <source>Verdict on the clock</source>
        <extracomment>main window: name of the verdict on the clock</extracomment>
        <translation>Urteil über die Uhr</translation>
    </message>
    <message>
        <source>Why</source>
        <extracomment>main window: name of the sentence that says why the verdict is so</extracomment>
        <translation>Warum</translation>
    </message>
    <message>
        <source>Error of the clock</source>
        <extracomment>main window: name of the sentence that says how far off the clock can be</extracomment>
        <translation>Fehler der Uhr</translation>
    </message>
    <message>
        <source>Which clock is meant</source>
        <extracomment>main window: name of the sentence that says that chronyd leaves the clock alone</extracomment>
        <translation>Welche Uhr gemeint ist</translation>
    </message>
    <message>
        <source>Notice</source>
        <extracomment>main window: name of the notice below the verdict</extracomment>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>E&amp;xplain</source>
        <extracomment>main window: button that explains the verdict and each source</extracomment>
        <translation>&amp;Erklären</translation>
    </message>
    <message>
        <source>Explain</source>
        <extracomment>main window: name of that button</extracomment>
        <translation>Erklären</translation>
    </message>
    <message>
        <source>chronyd follows no source yet: until it does, nothing keeps this clock right.</source>
        <extracomment>main window: notice while chronyd follows no source</extracomment>
        <translation>chronyd folgt noch keiner Quelle: Bis dahin hält nichts diese Uhr richtig.</translation>
    </message>
    <message>
        <source>chrony is not installed: nothing keeps this clock right.</source>
        <extracomment>main window: notice</extracomment>
        <translation>chrony ist nicht installiert: Nichts hält diese Uhr richtig.</translation>
    </message>
    <message>
        <source>I&amp;nstall chrony…</source>
        <extracomment>main window: button that mends what the notice beside it tells of</extracomment>
        <translation>chrony i&amp;nstallieren …</translation>
    </message>
    <message>
        <source>This system has a chrony of its own, but the preferences name another one.</source>
        <extracomment>main window: notice</extracomment>
        <translation>Dieses System hat ein eigenes chrony, die Einstellungen nennen aber ein anderes.</translation>
    </message>
    <message>
        <source>&amp;Use This System&apos;s chrony…</source>
        <extracomment>main window: button that has the preferences name the system&apos;s chrony</extracomment>
        <translation>chrony dieses S&amp;ystems verwenden …</translation>
    </message>
    <message>
        <source>chronyd is not running: nothing keeps this clock right.</source>
        <extracomment>main window: notice</extracomment>
        <translation>chronyd läuft nicht: Nichts hält diese Uhr richtig.</translation>
    </message>
    <message>
        <source>St&amp;art chronyd</source>
        <extracomment>main window: button that mends what the notice beside it tells of</extracomment>
        <translation>chronyd st&amp;arten</translation>
    </message>
    <message>
        <source>chrony keeps no log of its own, so the graph of the log stays empty.</source>
        <extracomment>main window: notice</extracomment>
        <translation>chrony führt kein eigenes Protokoll, deshalb bleibt dessen Graph leer.</translation>
    </message>
    <message>
        <source>Turn On &amp;Logging…</source>
        <extracomment>main window: button that mends what the notice beside it tells of</extracomment>
        <translation>Protoko&amp;ll einschalten …</translation>
    </message>
    <message>
        <source>Only an administrator may read chrony&apos;s logs, so the graph of the log stays empty.</source>
        <extracomment>main window: notice</extracomment>
        <translation>Nur die Systemverwaltung darf chronys Protokolle lesen, deshalb bleibt deren Graph leer.</translation>
    </message>
    <message>
        <source>&amp;Let Me Read the Logs</source>
        <extracomment>main window: button that mends what the notice beside it tells of</extracomment>
        <translation>Protoko&amp;lle für mich lesbar machen</translation>
    </message>
    <message>
        <source>Mend it</source>
        <extracomment>main window: name of the button that mends what the notice beside it tells of, before it is known what</extracomment>
        <translation>Beheben</translation>
    </message>
    <message>
        <source>&amp;Quiet</source>
        <extracomment>main window: button that takes away an alarm until it is over</extracomment>
        <translation>&amp;Ruhe</translation>
    </message>
    <message>
        <source>Quiet</source>
        <extracomment>main window: name of that button</extracomment>
        <translation>Ruhe</translation>
    </message>
    <message>
        <source>Say no more of this until it is over</source>
        <extracomment>main window: tooltip of that button</extracomment>
        <translation>Nichts mehr davon melden, bis es vorbei ist</translation>
    </message>
    <message>
        <source>chrony is not installed: %1 sets this clock, and nothing tells how right it is.</source>
        <extracomment>main window: notice; %1 is a program such as systemd-timesyncd</extracomment>
        <translation>chrony ist nicht installiert: %1 stellt diese Uhr, und nichts sagt, wie richtig sie geht.</translation>
    </message>
    <message>
        <source>chronyd is not running: %1 sets this clock, and nothing tells how right it is.</source>
        <extracomment>main window: notice; %1 is a program such as systemd-timesyncd</extracomment>
        <translation>chronyd läuft nicht: %1 stellt diese Uhr, und nichts sagt, wie richtig sie geht.</translation>
    </message>
</context>
<context>
    <name>windowmenus</name>
    <message>
        <source>&amp;Window</source>
        <extracomment>title of the menu with the program&apos;s windows</extracomment>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <extracomment>item of the menu with the program&apos;s windows</extracomment>
        <translation>Fenster s&amp;chließen</translation>
    </message>
</context>
</TS>
