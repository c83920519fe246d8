#pragma once

#include "apps/host/DriveProject.h"
#include "apps/host/ValuePlace.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

/// A device of two axes that has one of everything the desk shows: a text, a current with limits, a
/// choice, lines of two and three digits, a record, and a value for level 5.
class DeskDevice {
public:
    static QByteArray description()
    {
        return R"({
  "format": "kr-device-description", "version": 1,
  "family": {"identifier": 78, "name": "Desk drive", "hasPhysicalAxes": true, "axes": [1, 2]},
  "languages": ["de", "en"],
  "dataTypes": ["STRING32", "UINT8", "UINT16"],
  "parameters": [
    {"number": 1, "coordinates": ["A20"], "name": "Text", "global": true,
     "elements": [{"dataType": "STRING32", "kind": 5, "default": "abc",
                   "levels": {"read": 0, "write": 1}}]},
    {"number": 2, "coordinates": ["B01"], "name": {"de": "Strom", "en": "Current"},
     "elements": [{"dataType": "UINT16", "kind": 0, "default": 4200,
                   "limits": {"lower": 100, "upper": 40000},
                   "units": {"scaled": "A", "native": "mA"}, "scaling": {"factor": 0.001},
                   "decimals": {"behind": 3, "significant": 6},
                   "levels": {"read": 0, "write": 2}}]},
    {"number": 3, "coordinates": ["B02"], "name": {"de": "Bremse", "en": "Brake"},
     "elements": [{"dataType": "UINT8", "kind": 1, "default": 0,
                   "limits": {"lower": 0, "upper": 1},
                   "choices": {"0": {"de": "Aus", "en": "Off"}, "1": {"de": "Ein", "en": "On"}},
                   "levels": {"read": 0, "write": 2}}]},
    {"number": 4, "coordinates": ["B100"], "name": "Hundert", "global": true,
     "elements": [{"dataType": "UINT16", "kind": 0, "default": 100,
                   "levels": {"read": 0, "write": 4}}]},
    {"number": 5, "coordinates": ["B10"], "name": "Zehn", "global": true,
     "elements": [{"dataType": "UINT16", "kind": 0, "default": 10,
                   "levels": {"read": 0, "write": 2}}]},
    {"number": 6, "coordinates": ["E30"], "name": "Faktor", "global": true, "type": "record",
     "elements": [
       {"number": 1, "name": "Zähler", "dataType": "UINT16", "kind": 0, "default": 1,
        "levels": {"read": 0, "write": 2}},
       {"number": 2, "name": "Nenner", "dataType": "UINT16", "kind": 0, "default": 1,
        "levels": {"read": 0, "write": 2}}]},
    {"number": 7, "coordinates": ["P01"], "name": "Geheim", "global": true,
     "elements": [{"dataType": "UINT16", "kind": 0, "default": 7,
                   "levels": {"read": 5, "write": 5}}]}
  ]
})";
    }

    explicit DeskDevice(const QByteArray &text = description())
    {
        QFile file(fileName());
        if (file.open(QIODevice::WriteOnly))
            file.write(text);
    }

    QString fileName() const { return path("desk.json"); }
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }
    std::unique_ptr<DriveProject> open() const
    {
        QString error;
        return DriveProject::open(fileName(), error);
    }

private:
    QTemporaryDir m_folder;
};

inline ValuePlace place(const char *coordinate, int livingSpace = 0, quint16 element = 0)
{
    return {
        ParameterCoordinate(QString::fromLatin1(coordinate)), eLivingSpace(livingSpace), element};
}
