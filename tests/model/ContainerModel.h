#pragma once

#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <array>

/// What one step of a sequence does. Every step may be taken at any time; most do nothing where what
/// they name is not there.
struct Step {
    enum eKind {
        Create,
        Update,
        Delete,
        Clear,
        WriteDisplay,
        WriteNative,
        WriteUndecorated,
        Online,
        ReadOnly,
        Level,
        Firmware,
        ElementCount,
        Coordinate,
        Save,
        Load,
        StartConsistence,
        CancelConsistence,
        KindCount
    };

    eKind kind = Clear;
    int parameter = 0;
    int livingSpace = 1;
    quint16 element = 0;
    int number = 0;

    bool operator==(const Step &) const = default;
};

/// A container as plain maps: what it holds after each step, and what it tells.
///
/// Its device: A12, which others follow; B07, whose limits and visibility follow A12; C01, whose
/// post-write function, run at a change of A12, writes D20[5], and whose fieldbus unit is A12's text; the
/// record D20; the global E01, whose scaling follows A12; the moveable Q00. Firmware 1 and 2 answer
/// differently, 0 is none.
class ContainerModel {
public:
    enum eParameter { A12, B07, C01, D20, E01, Q00, ParameterCount };
    static constexpr int FirmwareCount = 3;
    /// Definitions of each parameter, of which the second follows the first.
    static constexpr int VersionCount = 2;

    struct Instance {
        QMap<quint16, QString> values;
        /// Elements whose default is stored: one that is not is new where it is loaded.
        QSet<quint16> defaults;
        QMap<quint16, bool> hidden;
        /// What a change is measured by: asked for since the functions or the definition changed.
        QMap<quint16, QString> toldLimits;
        QMap<quint16, QString> toldUnits;

        bool operator==(const Instance &) const = default;
    };
    struct Parameter {
        int version = 0;
        /// Of a simple parameter.
        quint16 count = 0;
        quint16 moveableLine = 0;
        /// By living space; empty: the parameter is not there.
        QMap<int, Instance> instances;
        /// Elements still awaited by living space.
        QMap<int, QSet<quint16>> runs;

        bool operator==(const Parameter &) const = default;
    };

    static quint32 readLevel(int parameter, int version);
    static quint32 writeLevel(int parameter);
    /// Of a definition.
    static quint16 definedCount(int parameter, int version);
    static QList<quint16> recordElements(int version);
    static int livingSpace(int parameter, int given) { return parameter == E01 ? 0 : given; }

    /// What the container tells of the step, in order.
    QStringList take(const Step &step);
    /// Whether the step means something that the model tells; hostile listeners take it all the same.
    bool isModelled(const Step &step) const;

    QList<quint16> elements(int parameter) const;
    QString coordinateText(int parameter) const;
    QString value(int parameter, int livingSpace, quint16 element) const;
    bool isVisible(int parameter, int livingSpace, quint16 element) const;
    bool isWritable(int parameter) const;
    /// Lower and upper limit.
    std::pair<QString, QString> limits(int parameter, int livingSpace) const;

    std::array<Parameter, ParameterCount> parameters;
    bool isOnline = false;
    bool isReadOnly = false;
    quint32 level = 0;
    int firmware = 0;

private:
    bool isThere(int parameter, int livingSpace, quint16 element) const;
    QString address(int parameter, int livingSpace, quint16 element) const;
    QString container(const char *signal, int parameter, int livingSpace, quint16 element) const;
    /// Of a set alone.
    QString set(const char *signal, int parameter, int livingSpace, quint16 element) const;
    QString run(const char *signal, int parameter, int livingSpace) const;

    QStringList create(const Step &step);
    QStringList update(const Step &step);
    QStringList remove(int parameter);
    QStringList clear();
    QStringList store(int parameter, int livingSpace, quint16 element, const QString &text);
    QStringList storeOnline(int parameter, int livingSpace, quint16 element, const QString &text);
    QStringList followers(int livingSpace, const QString &text);
    QStringList followLimits(int livingSpace);
    QStringList followUnits(int livingSpace, const QString &text);
    QString limitTexts(int livingSpace) const;
    QStringList arrived(int parameter, int livingSpace, quint16 element);
    QStringList changeLevel(quint32 newLevel);
    QStringList changeReadOnly(bool newReadOnly);
    QStringList changeCount(quint16 count);
    QStringList load();
    QStringList startRun(const Step &step);
    QStringList loseElements(int parameter);
    QStringList definitionChanged(int parameter) const;
    QStringList askFlagsAnew(int parameter);
    QStringList askFlagAnew(int parameter, int livingSpace, quint16 element);
    bool answerHidden(int parameter, int livingSpace) const;
    void forgetAnswers(int parameter);
    /// Beyond its count a simple parameter has the default of element 0, and stores none.
    bool storesDefault(int parameter, quint16 element) const;
    void save();
    void materialize();

    std::array<Parameter, ParameterCount> m_saved;
};
