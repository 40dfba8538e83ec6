<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en_GB">
<context>
    <name>configeditor</name>
    <message numerus="yes">
        <source>%n configuration(s) had not been saved when the program ended</source>
        <extracomment>kept edits: message; configurations that were being edited when the program ended</extracomment>
        <translation>
            <numerusform>%n configuration had not been saved when the program ended</numerusform>
            <numerusform>%n configurations had not been saved when the program ended</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>freqtemp</name>
    <message numerus="yes">
        <source>and %n more</source>
        <extracomment>frequency and temperature window: end of a long legend</extracomment>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n point(s) of %1</source>
        <extracomment>frequency and temperature window: read out by screen readers; %1 is a sensor</extracomment>
        <translation>
            <numerusform>%n point of %1</numerusform>
            <numerusform>%n points of %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>history</name>
    <message numerus="yes">
        <source>Blue bar: chrony&apos;s log (%n file(s)), %1.</source>
        <extracomment>history window: where data come from; %1 is a span of time, %n the number of files</extracomment>
        <translation>
            <numerusform>Blue bar: chrony&apos;s log (%n file), %1.</numerusform>
            <numerusform>Blue bar: chrony&apos;s log (%n files), %1.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Network: all %n silent</source>
        <extracomment>history window: whose doing an event was, in brief; %n sources did not answer</extracomment>
        <translation>
            <numerusform>Network: all %n silent</numerusform>
            <numerusform>Network: all %n silent</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Certainly within ±%1 for %2 % of the time; beyond it %n time(s), %3 in all, at the longest %4.</source>
        <extracomment>history window: %1 is a time such as 1.00 ms, %2 a number, %3 and %4 spans of time, %n how often</extracomment>
        <translation>
            <numerusform>Certainly within ±%1 for %2 % of the time; beyond it %n time, %3 in all, at the longest %4.</numerusform>
            <numerusform>Certainly within ±%1 for %2 % of the time; beyond it %n times, %3 in all, at the longest %4.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>laboratory</name>
    <message numerus="yes">
        <source>, in %n stretch(es) with gaps between them</source>
        <extracomment>laboratory: goes on from &quot;one every 64 s&quot;</extracomment>
        <translation>
            <numerusform>, in %n stretch</numerusform>
            <numerusform>, in %n stretches with gaps between them</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tickervantage::HelpContents</name>
    <message numerus="yes">
        <source>%n passage(s)</source>
        <extracomment>help window: answer of a search; %n passages were found</extracomment>
        <translation>
            <numerusform>%n passage</numerusform>
            <numerusform>%n passages</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tracking</name>
    <message numerus="yes">
        <source>%n hour(s)</source>
        <extracomment>tracking window: time range</extracomment>
        <translation>
            <numerusform>%n hour</numerusform>
            <numerusform>%n hours</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) from %1 to %2. Newest: %3</source>
        <extracomment>tracking window: the graph as screen readers read it out; %1 and %2 are times, %3 the newest record</extracomment>
        <translation>
            <numerusform>%n record from %1 to %2. Newest: %3</numerusform>
            <numerusform>%n records from %1 to %2. Newest: %3</numerusform>
        </translation>
    </message>
</context>
</TS>
