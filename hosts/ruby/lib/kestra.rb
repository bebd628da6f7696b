# frozen_string_literal: true

# Kestra: impresoras fiscales desde Ruby.
#
#   Kestra::Impresora.abrir { |impresora| impresora.abrir_comprobante_fiscal('FC', 'B', responsabilidad_iva: 'F') }
require_relative 'kestra/declaraciones'
require_relative 'kestra/operador'
require_relative 'kestra/impresora'
require_relative 'kestra/virtual'
