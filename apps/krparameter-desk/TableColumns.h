#pragma once

#include <QtCore/qnamespace.h>

/// What the table of values has in its columns, and what its cells answer beside Qt's roles.
struct TableColumns {
    enum eColumn { Address, Name, Value, Unit, Default, LowerLimit, UpperLimit, ChangeTag };
    static constexpr int ColumnCount = ChangeTag + 1;

    enum eRole {
        /// Bool: the value differs from its default.
        DiffersRole = Qt::UserRole,
        /// List of string pairs, native text and shown text: what a choice offers.
        ChoicesRole,
        NativeRole,
    };
};
