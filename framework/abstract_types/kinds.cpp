// The descriptors of the abstract kinds stand together, so that each finds its parent whatever the
// order in which files are initialised.

#include "framework/abstract_types/any.h"
#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "framework/abstract_types/number.h"
#include "framework/abstract_types/scalar.h"
#include "framework/calculator/descriptor.h"

namespace {

const KivOmbiObjectDescriptor any("any", nullptr, 0);
const KivOmbiObjectDescriptor scalar("scalar", &any, 0);
const KivOmbiObjectDescriptor number("number", &scalar, 0);
const KivOmbiObjectDescriptor integer("integer", &number, 0);
const KivOmbiObjectDescriptor boolean("boolean", &any, 0);

}  // namespace

const KivOmbiObjectDescriptor* const KivOmbiAny::sDescriptor = &any;
const KivOmbiObjectDescriptor* const KivOmbiScalar::sDescriptor = &scalar;
const KivOmbiObjectDescriptor* const KivOmbiNumber::sDescriptor = &number;
const KivOmbiObjectDescriptor* const KivOmbiInteger::sDescriptor = &integer;
const KivOmbiObjectDescriptor* const KivOmbiBoolean::sDescriptor = &boolean;
