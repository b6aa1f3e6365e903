// Where a company is: the path of a file, or an ODBC connection string. All texts in UTF-8.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

// True when an entry of the text ("key=value", separated by ";") has a key that connection
// strings have, in any order and case and with any blanks. "./" in front makes a path of any text.
bool IsConnectionString(std::string_view location);

// What a user has entered: without the blanks around it and the quotes of a copied path.
std::string_view EnteredLocation(std::string_view text);

// The entries without the blanks around keys and values, for drivers that do not trim them.
// Requires: IsConnectionString.
std::string NormalizedConnectionString(std::string_view location);

// What may be shown and logged: a path unchanged; of a connection string only driver, data source,
// server, port and database. A value whose brace does not close, or that holds a password because
// a ";" is missing, is left out.
std::string ShownLocation(std::string_view location);

// What may be stored for later: ShownLocation with the user name, the kind of login and what the
// driver needs to connect (protocol version, encryption, character set), never a password.
std::string RememberedLocation(std::string_view location);

// The connection string with this password in place of its own; unchanged if `password` is empty.
// Requires: IsConnectionString.
std::string WithPassword(std::string_view location, std::string_view password);

// `message` with each password of the connection string replaced by "***", and each value whose
// brace does not close.
std::string WithoutSecrets(std::string message, std::string_view location);

}  // namespace workbench
