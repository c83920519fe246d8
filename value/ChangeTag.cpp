#include "value/ChangeTag.h"

template <typename Text>
void ChangeTag::share(const Text &text)
{
    if (text.isEmpty())
        return;
    // Never destroyed: records may outlive the end of main().
    static ChangeTag &last = *new ChangeTag;
    if (!last.d || last.d->text != text)
        last.d = new Shared(QString(text));
    d = last.d;
}

template void ChangeTag::share(const QString &);
template void ChangeTag::share(const QLatin1StringView &);
