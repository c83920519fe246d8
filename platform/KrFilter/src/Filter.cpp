#include <KrFilter/Filter.h>

Filter::~Filter() = default;
