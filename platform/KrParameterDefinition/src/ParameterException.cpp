#include <KrParameterDefinition/ParameterException.h>

ParameterException::~ParameterException() = default;

const char *ParameterException::what() const noexcept
{
    switch (m_reason) {
    case ElementNotInParameter:
        return "element not in parameter";
    case NoOwningInstanceSet:
        return "no owning instance set";
    }
    return "parameter error";
}
