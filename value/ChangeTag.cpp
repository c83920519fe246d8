#include "value/ChangeTag.h"

ChangeTag::ChangeTag(const QString &text)
{
    if (text.isEmpty())
        return;
    // Never destroyed: records may outlive the end of main().
    static ChangeTag &last = *new ChangeTag;
    if (!last.d || last.d->text != text)
        last.d = new Shared(text);
    d = last.d;
}
