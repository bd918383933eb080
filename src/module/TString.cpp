#include "Toolkit/TString.h"

template <class CharT>
const TString<CharT>& TString<CharT>::Empty() {
    static const TString _Empty; // the name is required
    return _Empty;
}

template TOOLKIT_API const TString<char>& TString<char>::Empty();
template TOOLKIT_API const TString<wchar_t>& TString<wchar_t>::Empty();
