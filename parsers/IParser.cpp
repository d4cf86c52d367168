#include "parsers/IParser.h"

IParser::~IParser() = default;
