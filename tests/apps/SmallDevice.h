#pragma once

#include "apps/host/DriveProject.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

/// A device of two axes with six values: the global text A20, the current B01 in mA shown in A, and
/// the record E30 of elements 1 and 2, which stands last and is global. B01's scaled unit is A.
class SmallDevice {
public:
    static QByteArray description()
    {
        return R"({
  "format": "kr-device-description", "version": 1,
  "family": {"identifier": 77, "name": "Small drive", "hasPhysicalAxes": true, "axes": [1, 2]},
  "languages": ["de", "en"],
  "dataTypes": ["STRING32", "UINT16"],
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
    {"number": 3, "coordinates": ["E30"], "name": "Faktor", "global": true, "type": "record",
     "elements": [
       {"number": 1, "name": "Zahl", "dataType": "UINT16", "kind": 0, "default": 1,
        "levels": {"read": 0, "write": 2}},
       {"number": 2, "name": "Nenner", "dataType": "UINT16", "kind": 0, "default": 1,
        "levels": {"read": 0, "write": 2}}]}
  ]
})";
    }

    /// What a save of the untouched device gives.
    static QByteArray defaultBlock()
    {
        return ";type=\"parametervalues\" version=\"0\"\r\n"
               "[A020]\r\nV_0_0=abc\r\nDV_0_0=abc\r\n"
               "[B001]\r\nV_1_0=4200\r\nDV_1_0=4200\r\nV_2_0=4200\r\nDV_2_0=4200\r\n"
               "[E030]\r\nV_0_1=1\r\nDV_0_1=1\r\nV_0_2=1\r\nDV_0_2=1\r\n";
    }

    SmallDevice()
    {
        QFile file(fileName());
        if (file.open(QIODevice::WriteOnly))
            file.write(description());
    }

    QString fileName() const { return m_folder.filePath(QStringLiteral("small.json")); }
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }
    std::unique_ptr<DriveProject> open() const
    {
        QString error;
        return DriveProject::open(fileName(), error);
    }

private:
    QTemporaryDir m_folder;
};

inline ParameterCoordinate at(const char *text)
{
    return ParameterCoordinate(QString::fromLatin1(text));
}
