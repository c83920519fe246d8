#pragma once

class ParameterInformation;

/// What a parameter is like that is an action of the drive.
namespace ActionForm {

/// A record whose element 0 is a command that takes 0 and 1 and whose elements 1 and 2 are only read,
/// all of them without storage.
bool isAction(const ParameterInformation &parameter);
/// It does not start while its axis is enabled.
bool needsDisabledAxis(const ParameterInformation &parameter);

} // namespace ActionForm
