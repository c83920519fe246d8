#include "value/ParameterDataDelegate.h"

#include <KrFilter/FilterElement.h>
#include <KrFirmware/CallbackProvider.h>
#include <KrParameterInstance/ActionParameter.h>
#include <KrParameterInstance/ParameterContainerHostInformation.h>
#include <KrParameterInstance/ParameterProvider.h>
#include <KrParameterInstance/ParameterSetup.h>

#include <QtTest/QTest>

#include <cstring>

/// The order of the virtual operations is binary interface: hosts and firmware libraries are built
/// against it.
class tst_InterfaceSlots : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void order_data();
    void order();
};

namespace {

/// Place in the table of virtual functions: the common C++ ABI stores one more than its offset.
template <typename Operation>
int slotOf(Operation operation)
{
    std::ptrdiff_t word = 0;
    static_assert(sizeof(operation) == 2 * sizeof(word));
    std::memcpy(&word, &operation, sizeof(word));
    return int((word - 1) / std::ptrdiff_t(sizeof(void *)));
}

/// A destructor has two places in that table; the operations behind it are counted with one.
constexpr int SecondDestructor = 1;

} // namespace

void tst_InterfaceSlots::order_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("expected");

    QTest::newRow("ParameterInformation::isSimpleParameter")
        << slotOf(&ParameterInformation::isSimpleParameter) - SecondDestructor << 11;
    QTest::newRow("ParameterInformation::isRecordParameter")
        << slotOf(&ParameterInformation::isRecordParameter) - SecondDestructor << 12;
    QTest::newRow("ParameterInformation::isGlobalParameter")
        << slotOf(&ParameterInformation::isGlobalParameter) - SecondDestructor << 13;
    QTest::newRow("ParameterInformation::name")
        << slotOf(&ParameterInformation::name) - SecondDestructor << 14;
    QTest::newRow("ParameterInformation::nameCommonTextIndex")
        << slotOf(&ParameterInformation::nameCommonTextIndex) - SecondDestructor << 15;
    QTest::newRow("ParameterInformation::version")
        << slotOf(&ParameterInformation::version) - SecondDestructor << 16;
    QTest::newRow("ParameterInformation::elementCount")
        << slotOf(&ParameterInformation::elementCount) - SecondDestructor << 17;
    QTest::newRow("ParameterInformation::definedElementCount")
        << slotOf(&ParameterInformation::definedElementCount) - SecondDestructor << 18;
    QTest::newRow("ParameterInformation::elementList")
        << slotOf(&ParameterInformation::elementList) - SecondDestructor << 19;
    QTest::newRow("ParameterInformation::elementSet")
        << slotOf(&ParameterInformation::elementSet) - SecondDestructor << 20;
    QTest::newRow("ParameterInformation::elementName")
        << slotOf(&ParameterInformation::elementName) - SecondDestructor << 21;
    QTest::newRow("ParameterInformation::elementNameCommonTextIndex")
        << slotOf(&ParameterInformation::elementNameCommonTextIndex) - SecondDestructor << 22;
    QTest::newRow("ParameterInformation::elementVersion")
        << slotOf(&ParameterInformation::elementVersion) - SecondDestructor << 23;
    QTest::newRow("ParameterInformation::coordinate")
        << slotOf(&ParameterInformation::coordinate) - SecondDestructor << 24;
    QTest::newRow("ParameterInformation::livingSpaces")
        << slotOf(&ParameterInformation::livingSpaces) - SecondDestructor << 25;
    QTest::newRow("ParameterInformation::hasElementProperty")
        << slotOf(&ParameterInformation::hasElementProperty) - SecondDestructor << 26;
    QTest::newRow("ParameterInformation::elementProperty")
        << slotOf(&ParameterInformation::elementProperty) - SecondDestructor << 27;
    QTest::newRow("ParameterInformation::isPropertySettable")
        << slotOf(&ParameterInformation::isPropertySettable) - SecondDestructor << 28;
    QTest::newRow("ParameterInformation::hasPropertyOverride")
        << slotOf(&ParameterInformation::hasPropertyOverride) - SecondDestructor << 29;
    QTest::newRow("ParameterInformation::hasInstance")
        << slotOf(&ParameterInformation::hasInstance) - SecondDestructor << 30;
    QTest::newRow("ParameterInformation::instanceSerialNumber")
        << slotOf(&ParameterInformation::instanceSerialNumber) - SecondDestructor << 31;
    QTest::newRow("ParameterInformation::address")
        << slotOf(&ParameterInformation::address) - SecondDestructor << 32;
    QTest::newRow("ParameterInformation::changeTagList")
        << slotOf(&ParameterInformation::changeTagList) - SecondDestructor << 33;
    QTest::newRow("ParameterInformation::changeTagListOfAllInstances")
        << slotOf(&ParameterInformation::changeTagListOfAllInstances) - SecondDestructor << 34;
    QTest::newRow("ParameterInformation::sortedChangeTagList")
        << slotOf(&ParameterInformation::sortedChangeTagList) - SecondDestructor << 35;
    QTest::newRow("ParameterInformation::attribute")
        << slotOf(&ParameterInformation::attribute) - SecondDestructor << 36;
    QTest::newRow("ParameterInformation::displayValueText")
        << slotOf(&ParameterInformation::displayValueText) - SecondDestructor << 37;
    QTest::newRow("ParameterInformation::nativeValueText")
        << slotOf(&ParameterInformation::nativeValueText) - SecondDestructor << 38;
    QTest::newRow("ParameterInformation::valueText")
        << slotOf(&ParameterInformation::valueText) - SecondDestructor << 39;
    QTest::newRow("ParameterInformation::preparedValueText")
        << slotOf(&ParameterInformation::preparedValueText) - SecondDestructor << 40;
    QTest::newRow("ParameterInformation::unconvertedNativeValueText")
        << slotOf(&ParameterInformation::unconvertedNativeValueText) - SecondDestructor << 41;
    QTest::newRow("ParameterInformation::unconvertedValueText")
        << slotOf(&ParameterInformation::unconvertedValueText) - SecondDestructor << 42;
    QTest::newRow("ParameterInformation::formattedValueText")
        << slotOf(&ParameterInformation::formattedValueText) - SecondDestructor << 43;
    QTest::newRow("ParameterInformation::formattedNativeValueText")
        << slotOf(&ParameterInformation::formattedNativeValueText) - SecondDestructor << 44;
    QTest::newRow("ParameterInformation::prepareValueText")
        << slotOf(&ParameterInformation::prepareValueText) - SecondDestructor << 45;
    QTest::newRow("ParameterInformation::adoptValueText")
        << slotOf(&ParameterInformation::adoptValueText) - SecondDestructor << 46;
    QTest::newRow("ParameterInformation::isHidden")
        << slotOf(&ParameterInformation::isHidden) - SecondDestructor << 47;
    QTest::newRow("ParameterInformation::isVisible")
        << slotOf(&ParameterInformation::isVisible) - SecondDestructor << 48;
    QTest::newRow("ParameterInformation::isWritable")
        << slotOf(&ParameterInformation::isWritable) - SecondDestructor << 49;
    QTest::newRow("ParameterInformation::datatype")
        << slotOf(&ParameterInformation::datatype) - SecondDestructor << 50;
    QTest::newRow("ParameterInformation::kind")
        << slotOf(&ParameterInformation::kind) - SecondDestructor << 51;
    QTest::newRow("ParameterInformation::memoryAllocation")
        << slotOf(&ParameterInformation::memoryAllocation) - SecondDestructor << 52;
    QTest::newRow("ParameterInformation::writeLevel")
        << slotOf(&ParameterInformation::writeLevel) - SecondDestructor << 53;
    QTest::newRow("ParameterInformation::readLevel")
        << slotOf(&ParameterInformation::readLevel) - SecondDestructor << 54;
    QTest::newRow("ParameterInformation::decimalPlacesBehind")
        << slotOf(&ParameterInformation::decimalPlacesBehind) - SecondDestructor << 55;
    QTest::newRow("ParameterInformation::decimalPlacesSignificant")
        << slotOf(&ParameterInformation::decimalPlacesSignificant) - SecondDestructor << 56;
    QTest::newRow("ParameterInformation::scaledMeasuringUnit")
        << slotOf(&ParameterInformation::scaledMeasuringUnit) - SecondDestructor << 57;
    QTest::newRow("ParameterInformation::nativeMeasuringUnit")
        << slotOf(&ParameterInformation::nativeMeasuringUnit) - SecondDestructor << 58;
    QTest::newRow("ParameterInformation::fieldbusMeasuringUnit")
        << slotOf(&ParameterInformation::fieldbusMeasuringUnit) - SecondDestructor << 59;
    QTest::newRow("ParameterInformation::lowerLimitText")
        << slotOf(&ParameterInformation::lowerLimitText) - SecondDestructor << 60;
    QTest::newRow("ParameterInformation::upperLimitText")
        << slotOf(&ParameterInformation::upperLimitText) - SecondDestructor << 61;
    QTest::newRow("ParameterInformation::isValueTextAcceptable")
        << slotOf(&ParameterInformation::isValueTextAcceptable) - SecondDestructor << 62;
    QTest::newRow("ParameterInformation::selectionTexts")
        << slotOf(&ParameterInformation::selectionTexts) - SecondDestructor << 63;
    QTest::newRow("ParameterInformation::parameterContainer")
        << slotOf(&ParameterInformation::parameterContainer) - SecondDestructor << 64;
    QTest::newRow("ParameterInformation::hostInformation")
        << slotOf(&ParameterInformation::hostInformation) - SecondDestructor << 65;
    QTest::newRow("ParameterInformation::description")
        << slotOf(&ParameterInformation::description) - SecondDestructor << 66;
    QTest::newRow("ParameterInformation::elementDescription")
        << slotOf(&ParameterInformation::elementDescription) - SecondDestructor << 67;
    QTest::newRow("ParameterInformation::defaultNativeValueText")
        << slotOf(&ParameterInformation::defaultNativeValueText) - SecondDestructor << 68;
    QTest::newRow("ParameterInformation::defaultValueText")
        << slotOf(&ParameterInformation::defaultValueText) - SecondDestructor << 69;
    QTest::newRow("ParameterInformation::setParameterNeedsConsistence")
        << slotOf(&ParameterInformation::setParameterNeedsConsistence) - SecondDestructor << 70;
    QTest::newRow("ParameterInformation::startAllElementsConsistenceOnce")
        << slotOf(&ParameterInformation::startAllElementsConsistenceOnce) - SecondDestructor << 71;
    QTest::newRow("ParameterInformation::cancelAllElementsConsistenceOnce")
        << slotOf(&ParameterInformation::cancelAllElementsConsistenceOnce) - SecondDestructor << 72;

    QTest::newRow("ParameterSetup::setElementCount")
        << slotOf(&ParameterSetup::setElementCount) - SecondDestructor << 73;
    QTest::newRow("ParameterSetup::setCoordinate")
        << slotOf(&ParameterSetup::setCoordinate) - SecondDestructor << 74;
    QTest::newRow("ParameterSetup::setProperty")
        << slotOf(&ParameterSetup::setProperty) - SecondDestructor << 75;
    QTest::newRow("ParameterSetup::setValueText")
        << slotOf(&ParameterSetup::setValueText) - SecondDestructor << 76;
    QTest::newRow("ParameterSetup::setOnlineValueText")
        << slotOf(&ParameterSetup::setOnlineValueText) - SecondDestructor << 77;
    QTest::newRow("ParameterSetup::setNativeValue")
        << slotOf(&ParameterSetup::setNativeValue) - SecondDestructor << 78;
    QTest::newRow("ParameterSetup::setDefaultValueText")
        << slotOf(&ParameterSetup::setDefaultValueText) - SecondDestructor << 79;
    QTest::newRow("ParameterSetup::setDefaultNativeValue")
        << slotOf(&ParameterSetup::setDefaultNativeValue) - SecondDestructor << 80;
    QTest::newRow("ParameterSetup::setDefaultNativeValueText")
        << slotOf(&ParameterSetup::setDefaultNativeValueText) - SecondDestructor << 81;
    QTest::newRow("ParameterSetup::setValueChangeTag")
        << slotOf(&ParameterSetup::setValueChangeTag) - SecondDestructor << 82;
    QTest::newRow("ParameterSetup::setDefaultValueChangeTag")
        << slotOf(&ParameterSetup::setDefaultValueChangeTag) - SecondDestructor << 83;

    QTest::newRow("ParameterProvider::createAction")
        << slotOf(&ParameterProvider::createAction) - SecondDestructor << 11;
    QTest::newRow("ParameterProvider::parameterInformation")
        << slotOf(&ParameterProvider::parameterInformation) - SecondDestructor << 12;
    QTest::newRow("ParameterProvider::parameterSetup")
        << slotOf(&ParameterProvider::parameterSetup) - SecondDestructor << 13;
    QTest::newRow("ParameterProvider::parameterList")
        << slotOf(&ParameterProvider::parameterList) - SecondDestructor << 14;
    QTest::newRow("ParameterProvider::deviceFamilyIdentifier")
        << slotOf(&ParameterProvider::deviceFamilyIdentifier) - SecondDestructor << 15;
    QTest::newRow("ParameterProvider::compareParameterCoordinateList")
        << slotOf(&ParameterProvider::compareParameterCoordinateList) - SecondDestructor << 16;

    QTest::newRow("ActionParameter::start")
        << slotOf(&ActionParameter::start) - SecondDestructor << 11;
    QTest::newRow("ActionParameter::isIdle")
        << slotOf(&ActionParameter::isIdle) - SecondDestructor << 12;
    QTest::newRow("ActionParameter::name")
        << slotOf(&ActionParameter::name) - SecondDestructor << 13;
    QTest::newRow("ActionParameter::stateText")
        << slotOf(&ActionParameter::stateText) - SecondDestructor << 14;
    QTest::newRow("ActionParameter::description")
        << slotOf(&ActionParameter::description) - SecondDestructor << 15;

    QTest::newRow("ParameterData::isGlobalParameter")
        << slotOf(&ParameterData::isGlobalParameter) << 0;
    QTest::newRow("ParameterData::axis") << slotOf(&ParameterData::axis) << 1;
    QTest::newRow("ParameterData::addressNumber") << slotOf(&ParameterData::addressNumber) << 2;
    QTest::newRow("ParameterData::datatype") << slotOf(&ParameterData::datatype) << 3;
    QTest::newRow("ParameterData::simpleType") << slotOf(&ParameterData::simpleType) << 4;
    QTest::newRow("ParameterData::kind") << slotOf(&ParameterData::kind) << 5;
    QTest::newRow("ParameterData::decimalPlacesBehind")
        << slotOf(&ParameterData::decimalPlacesBehind) << 6;
    QTest::newRow("ParameterData::decimalPlacesSignificant")
        << slotOf(&ParameterData::decimalPlacesSignificant) << 7;
    QTest::newRow("ParameterData::fullScaleValue") << slotOf(&ParameterData::fullScaleValue) << 8;
    QTest::newRow("ParameterData::scalingFactor") << slotOf(&ParameterData::scalingFactor) << 9;
    QTest::newRow("ParameterData::editStartStepSize")
        << slotOf(&ParameterData::editStartStepSize) << 10;
    QTest::newRow("ParameterData::lowerLimitValue")
        << slotOf(&ParameterData::lowerLimitValue) << 11;
    QTest::newRow("ParameterData::upperLimitValue")
        << slotOf(&ParameterData::upperLimitValue) << 12;
    QTest::newRow("ParameterData::hidingFunctionIndex")
        << slotOf(&ParameterData::hidingFunctionIndex) << 13;
    QTest::newRow("ParameterData::limitFunctionIndex")
        << slotOf(&ParameterData::limitFunctionIndex) << 14;
    QTest::newRow("ParameterData::scalingFunctionIndex")
        << slotOf(&ParameterData::scalingFunctionIndex) << 15;
    QTest::newRow("ParameterData::prereadFunctionIndex")
        << slotOf(&ParameterData::prereadFunctionIndex) << 16;
    QTest::newRow("ParameterData::prewriteFunctionIndex")
        << slotOf(&ParameterData::prewriteFunctionIndex) << 17;
    QTest::newRow("ParameterData::postreadFunctionIndex")
        << slotOf(&ParameterData::postreadFunctionIndex) << 18;
    QTest::newRow("ParameterData::postwriteFunctionIndex")
        << slotOf(&ParameterData::postwriteFunctionIndex) << 19;
    QTest::newRow("ParameterData::choiceMapKeys") << slotOf(&ParameterData::choiceMapKeys) << 20;
    QTest::newRow("ParameterData::hasProperty") << slotOf(&ParameterData::hasProperty) << 21;
    QTest::newRow("ParameterData::property") << slotOf(&ParameterData::property) << 22;

    QTest::newRow("FilterElement::stringProperty")
        << slotOf(&FilterElement::stringProperty) - SecondDestructor << 11;
    QTest::newRow("FilterElement::uint32Property")
        << slotOf(&FilterElement::uint32Property) - SecondDestructor << 12;
    QTest::newRow("FilterElement::int32Property")
        << slotOf(&FilterElement::int32Property) - SecondDestructor << 13;
    QTest::newRow("FilterElement::doubleProperty")
        << slotOf(&FilterElement::doubleProperty) - SecondDestructor << 14;

    QTest::newRow("ParameterContainerHostInformation::livingSpaces")
        << slotOf(&ParameterContainerHostInformation::livingSpaces) << 0;
    QTest::newRow("ParameterContainerHostInformation::deviceFamilyIdentifier")
        << slotOf(&ParameterContainerHostInformation::deviceFamilyIdentifier) << 1;

    QTest::newRow("CallbackProvider::readValue") << slotOf(&CallbackProvider::readValue) << 0;
    QTest::newRow("CallbackProvider::readValueNative")
        << slotOf(&CallbackProvider::readValueNative) << 1;
    QTest::newRow("CallbackProvider::readUndecoratedValue")
        << slotOf(&CallbackProvider::readUndecoratedValue) << 2;
    QTest::newRow("CallbackProvider::writeValue") << slotOf(&CallbackProvider::writeValue) << 3;
    QTest::newRow("CallbackProvider::writeValueNative")
        << slotOf(&CallbackProvider::writeValueNative) << 4;
    QTest::newRow("CallbackProvider::writeUndecoratedValue")
        << slotOf(&CallbackProvider::writeUndecoratedValue) << 5;
    QTest::newRow("CallbackProvider::parameterProperty")
        << slotOf(&CallbackProvider::parameterProperty) << 6;
    QTest::newRow("CallbackProvider::elementProperty")
        << slotOf(&CallbackProvider::elementProperty) << 7;
    QTest::newRow("CallbackProvider::datatypeProperty")
        << slotOf(&CallbackProvider::datatypeProperty) << 8;
    QTest::newRow("CallbackProvider::systemProperty")
        << slotOf(&CallbackProvider::systemProperty) << 9;
    QTest::newRow("CallbackProvider::containerText")
        << slotOf(&CallbackProvider::containerText) << 10;
    QTest::newRow("CallbackProvider::addInformationMessage")
        << slotOf(&CallbackProvider::addInformationMessage) << 11;
    QTest::newRow("CallbackProvider::addWarningMessage")
        << slotOf(&CallbackProvider::addWarningMessage) << 12;
    QTest::newRow("CallbackProvider::addCriticalMessage")
        << slotOf(&CallbackProvider::addCriticalMessage) << 13;
}

void tst_InterfaceSlots::order()
{
    QFETCH(int, place);
    QTEST(place, "expected");
}

QTEST_APPLESS_MAIN(tst_InterfaceSlots)

#include "tst_InterfaceSlots.moc"
