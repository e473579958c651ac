#include "shortcut/ValueTransformer.h"

#include "shortcut/KeyedUnarchiveTransformer.h"
#include "shortcut/MASDictionaryTransformer.h"

const ValueTransformer *ValueTransformer::valueTransformerForName(const QString &name)
{
    static const KeyedUnarchiveTransformer keyedUnarchive;
    static const MASDictionaryTransformer dictionary;
    for (const ValueTransformer *transformer :
         {static_cast<const ValueTransformer *>(&keyedUnarchive),
          static_cast<const ValueTransformer *>(&dictionary)}) {
        if (transformer->name() == name)
            return transformer;
    }
    return nullptr;
}
