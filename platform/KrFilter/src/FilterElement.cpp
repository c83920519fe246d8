#include <KrFilter/FilterElement.h>

FilterElement::FilterElement(QObject *parent)
    : QObject(parent)
{
}

FilterElement::~FilterElement() = default;
