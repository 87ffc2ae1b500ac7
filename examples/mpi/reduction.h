// Summaries of all ranks merged, by their images, in one reduction.
#pragma once

#include <mpi.h>

#include <algorithm>
#include <orvik/front.hpp>

// MPI's form of merging; MPI cannot pass an exception on.
inline void merge_images(void* in, void* inout, int*, MPI_Datatype* type) noexcept {
  int size;
  MPI_Type_size(*type, &size);
  const auto load = [size](void* image) {
    return orvik::Summary<double>::load(std::span(static_cast<std::byte*>(image), static_cast<std::size_t>(size)));
  };
  auto sum = load(in);
  sum.merge(load(inout));
  std::ranges::copy(sum.save(), static_cast<std::byte*>(inout));
}

// What all ranks saw, on rank 0; the same on as many ranks up to the last digits, since the order of ranks is kept.
inline orvik::Summary<double> reduced(const orvik::Summary<double>& own) {
  const std::vector<std::byte> sent = own.save();
  std::vector<std::byte> image = sent;
  MPI_Datatype type;
  MPI_Op op;
  MPI_Type_contiguous(static_cast<int>(sent.size()), MPI_BYTE, &type);
  MPI_Type_commit(&type);
  MPI_Op_create(merge_images, 0, &op);
  MPI_Reduce(sent.data(), image.data(), 1, type, op, 0, MPI_COMM_WORLD);
  MPI_Op_free(&op);
  MPI_Type_free(&type);
  return orvik::Summary<double>::load(image);
}
