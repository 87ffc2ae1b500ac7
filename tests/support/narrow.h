// The narrow forms of what has a form for each width of registers, on any processor.
#pragma once

#include "serv/registers.h"

namespace orvik::test {

// With narrow registers alone while it lives.
class Narrow {
 public:
  Narrow() { serv::wide_registers = serv::wide_aes = false; }
  ~Narrow() { serv::wide_registers = wide_, serv::wide_aes = aes_; }
  Narrow(const Narrow&) = delete;
  Narrow& operator=(const Narrow&) = delete;

 private:
  const bool wide_ = serv::wide_registers, aes_ = serv::wide_aes;
};

}  // namespace orvik::test
