# frozen_string_literal: true

# Los ejemplos emiten comprobantes: solo en una impresora virtual, si no se les pide otra cosa.
module Kestra
  # ¿Es virtual la impresora de ese archivo? Una dirección de esta máquina, una tubería o una pseudoterminal.
  def self.impresora_virtual?(archivo = 'Fiscal.ini')
    ini = File.read(archivo, encoding: 'Windows-1252:UTF-8', undef: :replace)
    # La clave puede estar más de una vez, también en secciones ajenas: no se elige cuál vale.
    dispositivos = ini.scan(/^[ \t]*ImpresoraDispositivo[ \t]*=[ \t]*(.*?)[ \t\r]*$/i).flatten
    !dispositivos.empty? && dispositivos.all? { |dispositivo| dispositivo_virtual?(dispositivo) }
  rescue SystemCallError
    false # no hay archivo, o no hay tal dispositivo
  end

  def self.dispositivo_virtual?(dispositivo)
    dispositivo.match?(/\Atcp:(127\.\d+\.\d+\.\d+|localhost|\[::1\]):\d+\z/i) ||
      dispositivo.start_with?('\\\\.\\pipe\\') ||
      (!dispositivo.empty? && File.realpath(dispositivo).match?(%r{\A/dev/pts/\d+\z}))
  end

  # Termina el programa con 2, salvo con una impresora virtual o con --impresora-real entre los argumentos.
  def self.exigir_impresora_virtual(argumentos)
    # La variable KESTRA_DISPOSITIVO se antepone a Fiscal.ini: con ella no.
    return if argumentos.include?('--impresora-real') || (ENV.fetch('KESTRA_DISPOSITIVO', '').empty? && impresora_virtual?)

    warn 'La impresora de Fiscal.ini no es virtual: para usarla igual, --impresora-real.'
    exit 2
  end
end
