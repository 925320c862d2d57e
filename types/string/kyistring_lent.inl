// The operations of dictionary strings that a `KyString` does for them: on the text itself, which is lent to it and not
// copied. Included where the two classes are made.

// --- editing ---

template <class Self>
template <class Change>
Self& KyDictionaryString<Self>::Edit(const Change& change) {
    LentText lent(text);
    change(*lent);
    return static_cast<Self&>(*this);
}

template <class Self>
void* KyDictionaryString<Self>::Alloc(short size) {
    return KyString(CodeSetGet(), LanguageGet()).Alloc(size);
}

template <class Self>
void KyDictionaryString<Self>::MakeString(const char* src, unsigned char srcCodeSet, short n, unsigned char flag) {
    text = nullptr;
    Edit([&](KyString& s) { s.MakeString(src, srcCodeSet, n, flag); });
}

template <class Self>
void KyDictionaryString<Self>::BuildString(const char* src, unsigned char srcCodeSet, unsigned short pos,
                                           unsigned short srcStart, unsigned short srcCount, unsigned short repeat,
                                           unsigned short buildMode, unsigned char flag) {
    Edit([&](KyString& s) { s.BuildString(src, srcCodeSet, pos, srcStart, srcCount, repeat, buildMode, flag); });
}

template <class Self>
KyChar KyDictionaryString<Self>::operator[](int i) {
    return (*View(*this))[i];
}

template <class Self>
Self& KyDictionaryString<Self>::Fill(unsigned short n, unsigned short c) {
    return Edit([&](KyString& own) { own.Fill(n, c); });
}
template <class Self>
Self& KyDictionaryString<Self>::Fill(unsigned short n, char c) {
    return Edit([&](KyString& own) { own.Fill(n, c); });
}
template <class Self>
Self& KyDictionaryString<Self>::Expand(unsigned short n, unsigned short c) {
    return Edit([&](KyString& own) { own.Expand(n, c); });
}
template <class Self>
Self& KyDictionaryString<Self>::Expand(unsigned short n, char c) {
    return Edit([&](KyString& own) { own.Expand(n, c); });
}
template <class Self>
Self& KyDictionaryString<Self>::Cut(unsigned short pos, short n) {
    return Edit([&](KyString& own) { own.Cut(pos, n); });
}
template <class Self>
Self& KyDictionaryString<Self>::Insert(const Self& s, unsigned short pos) {
    return Edit([&](KyString& own) { own.Insert(*View(s), pos); });
}
template <class Self>
Self& KyDictionaryString<Self>::Replace(const Self& s, unsigned short pos) {
    return Edit([&](KyString& own) { own.Replace(*View(s), pos); });
}
template <class Self>
Self& KyDictionaryString<Self>::operator+=(const Self& s) {
    return Edit([&](KyString& own) { own += *View(s); });
}
template <class Self>
Self& KyDictionaryString<Self>::operator<<(const Self& s) {
    return *this += s;
}
template <class Self>
Self& KyDictionaryString<Self>::operator<<(const KyString& s) {
    return Edit([&](KyString& own) { own << s; });
}
template <class Self>
Self& KyDictionaryString<Self>::operator<<(char c) {
    return Edit([&](KyString& own) { own << c; });
}
template <class Self>
Self& KyDictionaryString<Self>::operator<<(const char* s) {
    return Edit([&](KyString& own) { own << s; });
}
template <class Self>
Self& KyDictionaryString<Self>::operator<<(const unsigned short* s) {
    return Edit([&](KyString& own) { own << s; });
}
template <class Self>
Self& KyDictionaryString<Self>::operator<<(short number) {
    return Edit([&](KyString& own) { own << number; });
}
template <class Self>
Self& KyDictionaryString<Self>::operator<<(unsigned short number) {
    return Edit([&](KyString& own) { own << number; });
}
template <class Self>
Self& KyDictionaryString<Self>::operator<<(int number) {
    return Edit([&](KyString& own) { own << number; });
}
template <class Self>
Self& KyDictionaryString<Self>::operator<<(unsigned int number) {
    return Edit([&](KyString& own) { own << number; });
}
template <class Self>
Self& KyDictionaryString<Self>::operator<<(long long number) {
    return Edit([&](KyString& own) { own << number; });
}
template <class Self>
Self& KyDictionaryString<Self>::operator<<(unsigned long long number) {
    return Edit([&](KyString& own) { own << number; });
}
template <class Self>
Self& KyDictionaryString<Self>::operator<<(float number) {
    return Edit([&](KyString& own) { own << number; });
}
template <class Self>
Self& KyDictionaryString<Self>::operator<<(double number) {
    return Edit([&](KyString& own) { own << number; });
}
template <class Self>
Self& KyDictionaryString<Self>::LeftTrim() {
    return Edit([&](KyString& own) { own.LeftTrim(); });
}
template <class Self>
Self& KyDictionaryString<Self>::RightTrim() {
    return Edit([&](KyString& own) { own.RightTrim(); });
}
template <class Self>
Self& KyDictionaryString<Self>::Trim() {
    return Edit([&](KyString& own) { own.Trim(); });
}
template <class Self>
Self& KyDictionaryString<Self>::ToLower() {
    return Edit([&](KyString& own) { own.ToLower(); });
}
template <class Self>
Self& KyDictionaryString<Self>::ToUpper() {
    return Edit([&](KyString& own) { own.ToUpper(); });
}
template <class Self>
Self& KyDictionaryString<Self>::Transform(KyCharOperation& op) {
    return Edit([&](KyString& own) { own.Transform(op); });
}
template <class Self>
Self& KyDictionaryString<Self>::ReplaceAll(const Self& from, const Self& to, unsigned short start) {
    return Edit([&](KyString& own) { own.ReplaceAll(*View(from), *View(to), start); });
}
template <class Self>
Self& KyDictionaryString<Self>::ReplaceAll(unsigned short from, unsigned short to, unsigned short start) {
    return Edit([&](KyString& own) { own.ReplaceAll(from, to, start); });
}
template <class Self>
Self& KyDictionaryString<Self>::ReplaceAll(char from, char to, unsigned short start) {
    return Edit([&](KyString& own) { own.ReplaceAll(from, to, start); });
}

// --- extraction ---

template <class Self>
Self KyDictionaryString<Self>::Copy(unsigned short pos, short n) const {
    return View(*this)->Copy(pos, n);
}
template <class Self>
Self KyDictionaryString<Self>::Left(unsigned short n) const {
    return View(*this)->Left(n);
}
template <class Self>
Self KyDictionaryString<Self>::Right(unsigned short n) const {
    return View(*this)->Right(n);
}
template <class Self>
Self KyDictionaryString<Self>::Sum(const Self& a, const Self& b) {
    return *View(a) + *View(b);
}

// --- searching ---

template <class Self>
unsigned short KyDictionaryString<Self>::Find(const Self& pattern, unsigned short start, unsigned short op) const {
    return View(*this)->Find(*View(pattern), start, op);
}
template <class Self>
unsigned short KyDictionaryString<Self>::Find(unsigned short c, unsigned short start, unsigned short op) const {
    return View(*this)->Find(c, start, op);
}
template <class Self>
unsigned short KyDictionaryString<Self>::Find(char c, unsigned short start, unsigned short op) const {
    return View(*this)->Find(c, start, op);
}

// --- numbers ---

template <class Self>
int KyDictionaryString<Self>::Atol(int& out) const {
    return View(*this)->Atol(out);
}
template <class Self>
int KyDictionaryString<Self>::Atoll(long long& out) const {
    return View(*this)->Atoll(out);
}
template <class Self>
int KyDictionaryString<Self>::Strtol(int& out) const {
    return View(*this)->Strtol(out);
}
template <class Self>
int KyDictionaryString<Self>::Strtoll(long long& out) const {
    return View(*this)->Strtoll(out);
}
template <class Self>
KyDictionaryString<Self>::operator int() const {
    return *View(*this);
}
template <class Self>
KyDictionaryString<Self>::operator short() const {
    return *View(*this);
}
template <class Self>
KyDictionaryString<Self>::operator long long() const {
    return *View(*this);
}
template <class Self>
KyDictionaryString<Self>::operator double() const {
    return *View(*this);
}
