#pragma once

#include <KrParameterDefinition/ParameterAddress.h>
#include <KrParameterDefinition/eParameterProperty.h>

#include <QtCore/QString>

#include <optional>

class ParameterData;

/// One call of a firmware function for one element.
class FunctionCall {
public:
    /// `kind` is the property that holds the index.
    FunctionCall(
        eParameterProperty kind, quint16 index, const ParameterData &data, quint16 element);
    Q_DISABLE_COPY_MOVE(FunctionCall)

    eParameterProperty kind() const { return m_kind; }
    quint16 index() const { return m_index; }
    quint16 element() const { return m_element; }
    /// Limit, scaling and hiding functions only read; the others have effects.
    bool mayAct() const;

    /// Null once the record may be gone.
    const ParameterData *data() const { return m_data; }
    /// **Throws** ParameterException, as ParameterData does; like livingSpace().
    ParameterAddress address();
    /// 0 for a global parameter.
    int livingSpace();
    /// Keeps the address alone: what the function does next may lead to a listener that deletes the
    /// parameter.
    void releaseData();

    /// "limit function 3 of parameter D10, element 0".
    QString name();

    /// The call out of which this one came; null for the outermost. Borrowed.
    FunctionCall *outer = nullptr;
    /// Of the budget, when it began.
    qint64 usedBefore = 0;
    /// The function is not to be run again: it used up what calls may use.
    bool isGivenUp = false;

private:
    struct Place {
        ParameterAddress address;
        bool isGlobal;
    };
    const Place &place();

    eParameterProperty m_kind;
    quint16 m_index;
    quint16 m_element;
    const ParameterData *m_data;
    std::optional<Place> m_place;
};
