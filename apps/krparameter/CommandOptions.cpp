#include "apps/krparameter/CommandOptions.h"

QList<Option> CommandOptions::all()
{
    return {
        {OptionName::Device, tr("DATEI"),
            tr("Gerätebeschreibung, oder der Name einer mitgelieferten")},
        {OptionName::Project, tr("ORDNER"), tr("Projektordner; ohne ihn gelten die Defaultwerte")},
        {OptionName::Axis, QStringLiteral("N"),
            tr("Achse für Adressen ohne Achse (sonst 1); list zeigt nur diese")},
        {OptionName::AccessLevel, QStringLiteral("N"),
            tr("Zugriffsstufe: 0 (Bediener) bis 6 (Hersteller) oder mehr, sonst 4")},
        {OptionName::Language, QStringLiteral("de|en"), tr("Sprache der Texte, sonst de")},
        {OptionName::Json, {}, tr("Ausgabe als JSON, ein Objekt je Zeile")},
        {OptionName::Force, {}, tr("auch einen abgeschnittenen Block laden, ein Projekt ersetzen")},
        {OptionName::AllowLoss, {}, tr("auch speichern, wenn dabei etwas verloren geht")},
        {OptionName::Help, {}, tr("Hilfe; mit BEFEHL die Hilfe zu diesem"), u'h'},
        {OptionName::Version, {}, tr("Version")},
    };
}
